// Events and the wait engine: reset modes, wait-any order, wait-all, limits.
#include <gtest/gtest.h>

#include <atomic>
#include <vector>

#include "ThreadHelpers.h"

namespace {

using threadtest::JoinThreads;
using threadtest::RunOnOtherThread;

// Starts `count` threads that each wait once on `event`, count successes and
// then signal `ack` if given; returns their handles.
std::vector<HANDLE> StartWaiters(HANDLE event, int count, std::atomic<int> &woken, HANDLE ack = nullptr) {
    std::vector<HANDLE> threads;
    for (int i = 0; i < count; ++i) {
        threads.push_back(qor::BeginThread([event, ack, &woken]() -> DWORD {
            if (WaitForSingleObject(event, INFINITE) == WAIT_OBJECT_0) ++woken;
            if (ack) SetEvent(ack);
            return 0;
        }));
    }
    return threads;
}

TEST(Event, ManualResetReleasesEveryWaiterAndStaysSignalled) {
    HANDLE event = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    std::atomic<int> woken{0};
    auto threads = StartWaiters(event, 4, woken);
    SetEvent(event);
    JoinThreads(threads);
    EXPECT_EQ(woken, 4);
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
    ResetEvent(event);
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    CloseHandle(event);
}

TEST(Event, AutoResetGivesEachSignalToOneWaiter) {
    HANDLE event = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    HANDLE ack = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    std::atomic<int> woken{0};
    auto threads = StartWaiters(event, 3, woken, ack);
    for (int i = 1; i <= 3; ++i) {
        SetEvent(event);
        ASSERT_EQ(WaitForSingleObject(ack, INFINITE), WAIT_OBJECT_0);
        EXPECT_EQ(woken, i);
    }
    JoinThreads(threads);
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    CloseHandle(ack);
    CloseHandle(event);
}

TEST(Event, WaitAnyReportsLowestSignalledIndexAndConsumesOnlyIt) {
    HANDLE events[3] = {CreateEvent(nullptr, FALSE, FALSE, nullptr),
                        CreateEvent(nullptr, FALSE, FALSE, nullptr),
                        CreateEvent(nullptr, FALSE, FALSE, nullptr)};
    SetEvent(events[2]);
    SetEvent(events[1]);
    EXPECT_EQ(WaitForMultipleObjects(3, events, FALSE, 0), WAIT_OBJECT_0 + 1);
    EXPECT_EQ(WaitForMultipleObjects(3, events, FALSE, 0), WAIT_OBJECT_0 + 2);
    EXPECT_EQ(WaitForMultipleObjects(3, events, FALSE, 0), WAIT_TIMEOUT);
    // A single wait consumes an auto-reset signal too.
    SetEvent(events[0]);
    EXPECT_EQ(WaitForSingleObject(events[0], 0), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(events[0], 0), WAIT_TIMEOUT);
    for (HANDLE event : events) CloseHandle(event);
}

TEST(Event, WaitAllTakesEverythingOrNothing) {
    HANDLE events[2] = {CreateEvent(nullptr, FALSE, TRUE, nullptr),
                        CreateEvent(nullptr, FALSE, FALSE, nullptr)};
    EXPECT_EQ(WaitForMultipleObjects(2, events, TRUE, 0), WAIT_TIMEOUT);
    // The first signal was not consumed by the failed wait.
    EXPECT_EQ(WaitForSingleObject(events[0], 0), WAIT_OBJECT_0);
    SetEvent(events[0]);
    HANDLE setter = qor::BeginThread([&]() -> DWORD { return SetEvent(events[1]); });
    EXPECT_EQ(WaitForMultipleObjects(2, events, TRUE, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForMultipleObjects(2, events, FALSE, 0), WAIT_TIMEOUT);
    JoinThreads({setter});
    for (HANDLE event : events) CloseHandle(event);
}

TEST(Event, TimedWaitTimesOutWithoutSignal) {
    HANDLE event = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(WaitForSingleObject(event, 30), WAIT_TIMEOUT);
    EXPECT_GE(GetTickCount64() - start, 30u);
    CloseHandle(event);
}

TEST(Event, BadArgumentsFailInsteadOfCrashing) {
    HANDLE event = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    ASSERT_TRUE(CloseHandle(event));
    EXPECT_FALSE(CloseHandle(event));
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_FAILED);
    EXPECT_FALSE(SetEvent(event));
    EXPECT_EQ(WaitForMultipleObjects(0, nullptr, FALSE, 0), WAIT_FAILED);
    std::vector<HANDLE> tooMany(65, nullptr);
    EXPECT_EQ(WaitForMultipleObjects(65, tooMany.data(), FALSE, 0), WAIT_FAILED);
}

TEST(CriticalSection, IsRecursiveAndExcludesOtherThreads) {
    CCriticalSection section;
    section.Lock();
    section.Lock();
    BOOL otherGotIt = TRUE;
    RunOnOtherThread([&] { otherGotIt = TryEnterCriticalSection(section); });
    EXPECT_FALSE(otherGotIt);
    section.Unlock();
    section.Unlock();
    EXPECT_TRUE(TryEnterCriticalSection(section));
    section.Unlock();
}

TEST(SystemError, LastErrorIsPerThreadAndTextsAreReadable) {
    SetLastError(42);
    DWORD seenThere = 1;
    RunOnOtherThread([&] { seenThere = GetLastError(); });
    EXPECT_EQ(seenThere, 0u);
    EXPECT_EQ(GetLastError(), 42u);
    EXPECT_EQ(qor::SystemErrorText(ECONNREFUSED), "Connection refused");
}

}  // namespace
