// CThreadPool keeps worker threads alive between jobs, hands each job to the
// oldest idle worker, and grows by `growBy` workers when none is idle. It
// never shrinks: a worker lives until the pool is destroyed, and destruction
// waits, serving the thread's messages, for every running job to end.
#pragma once

#include <list>

#include "qor/platform/CriticalSection.h"
#include "qor/platform/Win32Types.h"

// One worker, in the pool's list in order of creation.
struct ThreadRecord {
    HANDLE thread = nullptr;
    // Manual-reset; replaced by a fresh one after each job.
    HANDLE finishedEvent = nullptr;
    // Auto-reset; signalled to hand the worker a job.
    HANDLE wakeEvent = nullptr;
    bool busy = false;
    unsigned (*function)(void *) = nullptr;
    void *argument = nullptr;
    bool closeFinishedEvent = true;
};

class CThreadPool {
public:
    using ThreadFunction = unsigned (*)(void *);

    // Starts `initialThreads` workers (0 is allowed: the first job makes
    // them); with `stagger`, pauses 40 ms after starting each worker.
    CThreadPool(unsigned short initialThreads, unsigned short growBy, bool stagger);
    // A copy shares the source's workers and handles as they stand; it must
    // not be destroyed while the source lives.
    CThreadPool(const CThreadPool &) = default;
    CThreadPool &operator=(const CThreadPool &) = default;
    virtual ~CThreadPool();

    // Runs function(argument) on the oldest idle worker and returns that
    // worker's finishedEvent. With closeFinishedEvent false the event is
    // signalled when the job ends and the caller must close it; with true the
    // pool closes it at the end of the job and the caller must not touch it.
    void *StartThread(ThreadFunction function, void *const argument, bool closeFinishedEvent);

private:
    void CreateThreads(unsigned short count);

    std::list<ThreadRecord> threads;
    HANDLE shutdownEvent;
    CRITICAL_SECTION lock;
    unsigned short growBy;
    bool stagger;
};
