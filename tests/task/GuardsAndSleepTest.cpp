// The scope guards and the pumping sleeps.
#include <gtest/gtest.h>

#include "../platform/ThreadHelpers.h"
#include "TaskFixtures.h"

namespace tasktest {
namespace {

// Whether another thread could enter `section` right now.
bool OtherThreadCanEnter(CRITICAL_SECTION &section) {
    BOOL entered = FALSE;
    threadtest::RunOnOtherThread([&] {
        entered = TryEnterCriticalSection(&section);
        if (entered) LeaveCriticalSection(&section);
    });
    return entered != FALSE;
}

// A `Guard` made from `owner` must hold `section` for its scope, and no longer.
template <typename Guard, typename Owner>
void ExpectHeldForScope(Owner &owner, CRITICAL_SECTION &section) {
    {
        Guard lock(owner);
        EXPECT_FALSE(OtherThreadCanEnter(section));
    }
    EXPECT_TRUE(OtherThreadCanEnter(section));
}

TEST(LockGuards, EachGuardHoldsItsLockForItsScope) {
    CCriticalSection object;
    CRITICAL_SECTION plain;
    InitializeCriticalSection(&plain);
    {
        CCSAutoLock lock(plain, "label");
        EXPECT_FALSE(OtherThreadCanEnter(plain));
    }
    EXPECT_TRUE(OtherThreadCanEnter(plain));
    ExpectHeldForScope<CThreadAutolock>(plain, plain);
    ExpectHeldForScope<auto_lock>(object, object.m_sect);
    DeleteCriticalSection(&plain);
    HANDLE mutex = CreateMutex(nullptr, FALSE, nullptr);
    {
        auto_mutex hold(mutex);
        EXPECT_FALSE(threadtest::OtherThreadCanTake(mutex));
    }
    EXPECT_TRUE(threadtest::OtherThreadCanTake(mutex));
    CloseHandle(mutex);
}

TEST(LockGuards, AutoBoolInvertsAndAutoIncDecCounts) {
    CCriticalSection lock;
    bool volatile flag = false;
    unsigned long volatile counter = 5;
    {
        auto_bool inverted(lock, flag);
        auto_inc_dec counted(lock, counter);
        EXPECT_TRUE(flag);
        EXPECT_EQ(counter, 6u);
        // The lock is held only for the change, not the scope.
        EXPECT_TRUE(OtherThreadCanEnter(lock.m_sect));
    }
    EXPECT_FALSE(flag);
    EXPECT_EQ(counter, 5u);
    flag = true;
    {
        auto_bool inverted(lock, flag);
        EXPECT_FALSE(flag);
    }
    EXPECT_TRUE(flag);
}

TEST(AlertablePumpingSleep, ReportsIndexTimeoutAndFailureAndConsumesManualResets) {
    HANDLE events[2] = {CreateEvent(nullptr, FALSE, FALSE, nullptr), CreateEvent(nullptr, FALSE, TRUE, nullptr)};
    EXPECT_EQ(AlertablePumpingSleep(0xFFFFFFFFul, 2u, events), 1);
    EXPECT_EQ(AlertablePumpingSleep(10ul, 2u, events), -1);
    HANDLE closed = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(closed);
    EXPECT_EQ(AlertablePumpingSleep(10ul, 1u, &closed), -2);
    for (HANDLE event : events) CloseHandle(event);
    // A manual-reset event that ends the wait is reset by it.
    HANDLE manual = CreateEvent(nullptr, TRUE, TRUE, nullptr);
    EXPECT_EQ(AlertablePumpingSleep(100ul, 1u, &manual), 0);
    EXPECT_EQ(WaitForSingleObject(manual, 0), WAIT_TIMEOUT);
    EXPECT_FALSE(AlertablePumpingSleep(0ul, manual));
    SetEvent(manual);
    EXPECT_TRUE(AlertablePumpingSleep(0ul, manual));
    CloseHandle(manual);
}

TEST(AlertablePumpingSleep, DispatchesMessagesWhileItWaits) {
    const DWORD self = GetCurrentThreadId();
    MSG msg;
    PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE);
    HANDLE done = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    HANDLE served = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    int handled = 0;
    qor::SetThreadMessageHandler([&](const MSG &m) -> LRESULT {
        ++handled;
        SetEvent(served);
        return 0;
    });
    HANDLE worker = threadtest::StartPoster(self, WM_USER + 1, 3, served, done);
    AlertablePumpingSleep(done);
    EXPECT_EQ(handled, 3);
    qor::SetThreadMessageHandler(nullptr);
    WaitForSingleObject(worker, INFINITE);
    for (HANDLE handle : {worker, done, served}) CloseHandle(handle);
}

}  // namespace
}  // namespace tasktest
