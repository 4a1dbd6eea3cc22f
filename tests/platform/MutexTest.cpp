// Mutexes: ownership, recursion, and named mutexes across threads and processes.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "ThreadHelpers.h"

namespace {

using threadtest::OtherThreadCanTake;

std::string UniqueName(const char *stem) {
    return std::string("Qor test ") + stem + " " + std::to_string(getpid());
}

TEST(Mutex, IsRecursiveForItsOwnerAndReleasedOnlyByIt) {
    HANDLE mutex = CreateMutex(nullptr, TRUE, nullptr);
    EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0);
    EXPECT_FALSE(OtherThreadCanTake(mutex));
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_FALSE(OtherThreadCanTake(mutex));
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_TRUE(OtherThreadCanTake(mutex));
    EXPECT_FALSE(ReleaseMutex(mutex));
    EXPECT_EQ(GetLastError(), 288u);  // ERROR_NOT_OWNER
    CloseHandle(mutex);
}

TEST(Mutex, SerialisesManyThreads) {
    HANDLE mutex = CreateMutex(nullptr, FALSE, nullptr);
    int counter = 0;  // guarded only by the mutex: ThreadSanitizer checks that
    threadtest::RunOnThreads(4, [&] {
        for (int i = 0; i < 500; ++i) {
            WaitForSingleObject(mutex, INFINITE);
            ++counter;
            ReleaseMutex(mutex);
        }
    });
    EXPECT_EQ(counter, 2000);
    CloseHandle(mutex);
}

// A thread that ends while owning a mutex frees it; the next owner learns of
// it from the wait's result, so a crashed holder cannot hang everyone.
TEST(Mutex, IsAbandonedWhenItsOwnerEnds) {
    const std::string name = UniqueName("abandoned");
    HANDLE plain = CreateMutex(nullptr, FALSE, nullptr);
    HANDLE named = CreateMutex(nullptr, FALSE, name.c_str());
    HANDLE owner = qor::BeginThread([&]() -> DWORD {
        WaitForSingleObject(plain, INFINITE);
        WaitForSingleObject(named, INFINITE);
        return 0;
    });
    WaitForSingleObject(owner, INFINITE);
    CloseHandle(owner);
    HANDLE never = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    HANDLE either[2] = {never, plain};
    EXPECT_EQ(WaitForMultipleObjects(2, either, FALSE, INFINITE), WAIT_ABANDONED_0 + 1);
    EXPECT_EQ(WaitForSingleObject(named, INFINITE), WAIT_ABANDONED_0);
    // Owned normally from here on.
    EXPECT_EQ(WaitForSingleObject(plain, 0), WAIT_OBJECT_0);
    EXPECT_TRUE(ReleaseMutex(plain));
    EXPECT_TRUE(ReleaseMutex(plain));
    EXPECT_TRUE(ReleaseMutex(named));
    EXPECT_TRUE(OtherThreadCanTake(plain));
    EXPECT_TRUE(OtherThreadCanTake(named));
    for (HANDLE handle : {plain, named, never}) CloseHandle(handle);
}

TEST(NamedMutex, HandlesOfOneNameShareOneOwnership) {
    const std::string name = UniqueName("shared");
    HANDLE first = CreateMutex(nullptr, FALSE, name.c_str());
    ASSERT_NE(first, nullptr);
    HANDLE second = CreateMutex(nullptr, FALSE, name.c_str());
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(GetLastError(), 183u);  // ERROR_ALREADY_EXISTS
    ASSERT_EQ(WaitForSingleObject(first, INFINITE), WAIT_OBJECT_0);
    // Recursion works through either handle.
    ASSERT_EQ(WaitForSingleObject(second, INFINITE), WAIT_OBJECT_0);
    EXPECT_FALSE(OtherThreadCanTake(second));
    ReleaseMutex(second);
    EXPECT_FALSE(OtherThreadCanTake(first));
    ReleaseMutex(first);
    EXPECT_TRUE(OtherThreadCanTake(second));
    CloseHandle(first);
    // The name lives while a handle is open.
    EXPECT_TRUE(OtherThreadCanTake(second));
    CloseHandle(second);
}

// A child process takes the named mutex and reports through a pipe; the
// parent must not get it until the child lets go.
TEST(NamedMutex, SerialisesAcrossProcesses) {
    const std::string name = UniqueName("processes");
    int toParent[2], toChild[2];
    ASSERT_EQ(pipe(toParent), 0);
    ASSERT_EQ(pipe(toChild), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        HANDLE mutex = CreateMutex(nullptr, FALSE, name.c_str());
        char byte = 'x';
        if (!mutex || WaitForSingleObject(mutex, INFINITE) != WAIT_OBJECT_0) _exit(2);
        if (WaitForSingleObject(mutex, 0) != WAIT_OBJECT_0) _exit(3);  // recursive here too
        if (write(toParent[1], &byte, 1) != 1) _exit(4);
        if (read(toChild[0], &byte, 1) != 1) _exit(5);
        ReleaseMutex(mutex);
        ReleaseMutex(mutex);
        _exit(0);
    }
    close(toParent[1]);
    close(toChild[0]);
    char byte = 0;
    ASSERT_EQ(read(toParent[0], &byte, 1), 1);
    HANDLE mutex = CreateMutex(nullptr, FALSE, name.c_str());
    ASSERT_NE(mutex, nullptr);
    EXPECT_EQ(WaitForSingleObject(mutex, 20), WAIT_TIMEOUT);
    // A failed timed wait leaves the mutex free in this process.
    EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_TIMEOUT);
    ASSERT_EQ(write(toChild[1], &byte, 1), 1);
    EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_OBJECT_0);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(ReleaseMutex(mutex));
    CloseHandle(mutex);
    close(toParent[0]);
    close(toChild[1]);
}

}  // namespace
