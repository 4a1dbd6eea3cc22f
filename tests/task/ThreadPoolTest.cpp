// The thread pool: worker reuse, growth, finishedEvent rules, destruction.
#include <gtest/gtest.h>

#include <atomic>
#include <vector>

#include "../platform/ThreadHelpers.h"
#include "TaskFixtures.h"

namespace tasktest {
namespace {

// A job that notes its thread, then waits for its gate if it has one.
struct Job {
    HANDLE gate = nullptr;
    std::atomic<DWORD> thread{0};
    HANDLE started = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    ~Job() { CloseHandle(started); }
    static unsigned Run(void *argument) {
        auto *job = static_cast<Job *>(argument);
        job->thread = GetCurrentThreadId();
        SetEvent(job->started);
        if (job->gate) WaitForSingleObject(job->gate, INFINITE);
        return 0;
    }
};

TEST(ThreadPool, GrowsWhenEveryWorkerIsBusyAndReusesTheOldestIdleWithAFreshEvent) {
    CThreadPool pool(0, 1, false);  // no worker until the first job
    Gate gate, laterGate;
    Job busy, extra, later;
    busy.gate = gate.handle;
    extra.gate = gate.handle;
    later.gate = laterGate.handle;
    HANDLE busyDone = pool.StartThread(Job::Run, &busy, false);
    HANDLE extraDone = pool.StartThread(Job::Run, &extra, false);
    WaitForSingleObject(busy.started, INFINITE);
    WaitForSingleObject(extra.started, INFINITE);
    EXPECT_NE(busy.thread.load(), extra.thread.load());
    gate.Open();
    ASSERT_EQ(WaitForSingleObject(busyDone, INFINITE), WAIT_OBJECT_0);
    ASSERT_EQ(WaitForSingleObject(extraDone, INFINITE), WAIT_OBJECT_0);
    // Both idle now: the job goes to the first worker made, with an event of
    // its own that the earlier job's end did not signal.
    HANDLE laterDone = pool.StartThread(Job::Run, &later, false);
    EXPECT_NE(laterDone, busyDone);
    WaitForSingleObject(later.started, INFINITE);
    EXPECT_EQ(later.thread.load(), busy.thread.load());
    EXPECT_EQ(WaitForSingleObject(laterDone, 0), WAIT_TIMEOUT);
    laterGate.Open();
    EXPECT_EQ(WaitForSingleObject(laterDone, INFINITE), WAIT_OBJECT_0);
    for (HANDLE handle : {busyDone, extraDone, laterDone}) CloseHandle(handle);
}

// The destructor waits for the running job while serving the thread's
// messages: this job only ends once the destroying thread has handled the
// message it posts, so a destructor that did not pump would hang.
TEST(ThreadPool, DestructionWaitsForJobsWithMessagesServed) {
    const DWORD self = GetCurrentThreadId();
    MSG msg;
    PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE);  // this thread's queue exists
    Gate gate;
    std::atomic<bool> jobEnded{false};
    qor::SetThreadMessageHandler([&](const MSG &m) -> LRESULT {
        if (m.message == WM_USER + 7) gate.Open();
        return 0;
    });
    struct Poster {
        DWORD target;
        HANDLE gate;
        std::atomic<bool> *ended;
        HANDLE started;
        static unsigned Run(void *argument) {
            auto *self = static_cast<Poster *>(argument);
            PostThreadMessage(self->target, WM_USER + 7, 0, 0);
            SetEvent(self->started);
            WaitForSingleObject(self->gate, INFINITE);
            *self->ended = true;
            return 0;
        }
    } poster{self, gate.handle, &jobEnded, CreateEvent(nullptr, TRUE, FALSE, nullptr)};
    {
        CThreadPool pool(1, 1, false);
        // The pool closes the finished event itself when asked to.
        ASSERT_NE(pool.StartThread(Poster::Run, &poster, true), nullptr);
        // Only a job that has begun is sure to run: a shutdown signal wins
        // over a job handed to a worker that was not yet waiting.
        WaitForSingleObject(poster.started, INFINITE);
    }
    CloseHandle(poster.started);
    EXPECT_TRUE(jobEnded);
    qor::SetThreadMessageHandler(nullptr);
}

TEST(ThreadPool, ManyJobsFromManyThreadsAllRun) {
    CThreadPool pool(2, 2, false);
    std::atomic<int> ran{0};
    struct Count {
        static unsigned Run(void *argument) {
            ++*static_cast<std::atomic<int> *>(argument);
            return 0;
        }
    };
    threadtest::RunOnThreads(3, [&] {
        for (int i = 0; i < 20; ++i) {
            HANDLE done = pool.StartThread(Count::Run, &ran, false);
            WaitForSingleObject(done, INFINITE);
            CloseHandle(done);
        }
    });
    EXPECT_EQ(ran, 60);
}

}  // namespace
}  // namespace tasktest
