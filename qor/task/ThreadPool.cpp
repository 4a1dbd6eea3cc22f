#include "qor/task/ThreadPool.h"

#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"
#include "qor/task/PumpingWait.h"

namespace qor::pool_detail {
namespace {

// What a worker is started with; the worker frees it when it ends.
struct WorkerStart {
    HANDLE shutdownEvent;
    long reserved;
    CRITICAL_SECTION *lock;
    ThreadRecord *record;
};

unsigned WorkerMain(void *argument) {
    auto *start = static_cast<WorkerStart *>(argument);
    ThreadRecord &record = *start->record;
    for (;;) {
        HANDLE events[2] = {start->shutdownEvent, record.wakeEvent};
        if (WaitForMultipleObjects(2, events, FALSE, INFINITE) != WAIT_OBJECT_0 + 1) break;
        record.function(record.argument);
        // A fresh event, so the next job's caller never sees this job's
        // signal. It is made before taking the lock, and the finished job's
        // event is signalled or closed after leaving it: the caller that the
        // signal wakes typically hands out the next job at once, and would
        // otherwise find the lock still held and have to sleep on it.
        HANDLE fresh = CreateEvent(nullptr, TRUE, FALSE, nullptr);
        EnterCriticalSection(start->lock);
        record.busy = false;
        HANDLE finished = record.finishedEvent;
        const bool closeFinished = record.closeFinishedEvent;
        record.finishedEvent = fresh;
        LeaveCriticalSection(start->lock);
        if (closeFinished)
            CloseHandle(finished);
        else
            SetEvent(finished);
    }
    delete start;
    return 0;
}

}  // namespace
}  // namespace qor::pool_detail

CThreadPool::CThreadPool(unsigned short initialThreads, unsigned short growBy, bool stagger)
    : growBy(growBy), stagger(stagger) {
    InitializeCriticalSection(&lock);
    shutdownEvent = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    CreateThreads(initialThreads);
}

CThreadPool::~CThreadPool() {
    SetEvent(shutdownEvent);
    Sleep(20);
    for (ThreadRecord &record : threads) {
        qor::PumpUntilSignalled(record.thread, false);
        CloseHandle(record.thread);
        CloseHandle(record.wakeEvent);
        CloseHandle(record.finishedEvent);
    }
    CloseHandle(shutdownEvent);
    DeleteCriticalSection(&lock);
    threads.clear();
}

void CThreadPool::CreateThreads(unsigned short count) {
    for (unsigned short i = 0; i < count; ++i) {
        ThreadRecord &record = threads.emplace_back();
        record.wakeEvent = CreateEvent(nullptr, FALSE, FALSE, nullptr);
        record.finishedEvent = CreateEvent(nullptr, TRUE, FALSE, nullptr);
        auto *start = new qor::pool_detail::WorkerStart{shutdownEvent, -1, &lock, &record};
        record.thread = reinterpret_cast<HANDLE>(
            _beginthreadex(nullptr, 0, qor::pool_detail::WorkerMain, start, 0, nullptr));
        // The record stays, as a worker that never takes its job; only the
        // start block that nobody will free goes.
        if (!record.thread) delete start;
        if (stagger) Sleep(40);
    }
}

void *CThreadPool::StartThread(ThreadFunction function, void *const argument, bool closeFinishedEvent) {
    EnterCriticalSection(&lock);
    for (;;) {
        for (ThreadRecord &record : threads) {
            if (record.busy) continue;
            record.function = function;
            record.argument = argument;
            record.closeFinishedEvent = closeFinishedEvent;
            record.busy = true;
            SetEvent(record.wakeEvent);
            HANDLE finished = record.finishedEvent;
            LeaveCriticalSection(&lock);
            return finished;
        }
        CreateThreads(growBy);
    }
}
