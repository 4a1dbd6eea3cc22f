// Thread handles: signalled at exit, exit codes, closing while running.
#include <gtest/gtest.h>

#include "qor/platform.h"

namespace {

unsigned ReturnArgument(void *argument) { return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(argument)); }

DWORD WaitThenReturn(void *event) {
    WaitForSingleObject(static_cast<HANDLE>(event), INFINITE);
    return 7;
}

TEST(Thread, HandleIsSignalledWhenTheThreadEndsAndKeepsTheExitCode) {
    HANDLE release = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    DWORD id = 0;
    HANDLE thread = CreateThread(nullptr, 0, WaitThenReturn, release, 0, &id);
    ASSERT_NE(thread, nullptr);
    EXPECT_NE(id, 0u);
    EXPECT_NE(id, GetCurrentThreadId());
    DWORD code = 0;
    ASSERT_TRUE(GetExitCodeThread(thread, &code));
    EXPECT_EQ(code, STILL_ACTIVE);
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_TIMEOUT);
    SetEvent(release);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    // A thread handle stays signalled: a second wait succeeds too.
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_OBJECT_0);
    ASSERT_TRUE(GetExitCodeThread(thread, &code));
    EXPECT_EQ(code, 7u);
    CloseHandle(thread);
    CloseHandle(release);
}

TEST(Thread, BeginThreadExPassesArgumentAndId) {
    unsigned id = 0;
    auto raw = _beginthreadex(nullptr, 0, ReturnArgument, reinterpret_cast<void *>(std::uintptr_t{99}), 0, &id);
    ASSERT_NE(raw, 0u);
    HANDLE thread = reinterpret_cast<HANDLE>(raw);
    WaitForSingleObject(thread, INFINITE);
    DWORD code = 0;
    GetExitCodeThread(thread, &code);
    EXPECT_EQ(code, 99u);
    EXPECT_NE(id, 0u);
    CloseHandle(thread);
}

TEST(Thread, ClosingTheHandleOfARunningThreadIsSafe) {
    HANDLE release = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    HANDLE finished = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread = qor::BeginThread([&]() -> DWORD {
        WaitForSingleObject(release, INFINITE);
        SetEvent(finished);
        return 0;
    });
    ASSERT_TRUE(CloseHandle(thread));
    SetEvent(release);
    EXPECT_EQ(WaitForSingleObject(finished, INFINITE), WAIT_OBJECT_0);
    CloseHandle(release);
    CloseHandle(finished);
}

TEST(Thread, WaitOnThreadsAndEventsTogether) {
    HANDLE never = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread = qor::BeginThread([]() -> DWORD { return 0; });
    HANDLE both[2] = {never, thread};
    EXPECT_EQ(WaitForMultipleObjects(2, both, FALSE, INFINITE), WAIT_OBJECT_0 + 1);
    CloseHandle(thread);
    CloseHandle(never);
}

}  // namespace
