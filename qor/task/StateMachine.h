// CStateMachine runs a CStateMachineTask on the caller's thread (blocking) or
// on a pool thread (non-blocking), and lets a person retry, ignore or abort a
// failed step from any thread. From LaunchTask on, the task belongs to the
// machine. A driver derives from this class and supplies ReservedOperation,
// ReportError and OnUserAbort; the virtual table order is part of the
// contract. Callbacks come on the thread that runs the task.
#pragma once

#include <atomic>
#include <string>

#include "qor/platform/Win32Types.h"
#include "qor/task/StateMachineListener.h"
#include "qor/task/StateMachineTask.h"
#include "qor/task/TaskResults.h"
#include "qor/task/ThreadPool.h"

class CStateMachine {
public:
    CStateMachine();
    // Memberwise: handles, pointers and flags as they stand.
    CStateMachine(const CStateMachine &other);
    CStateMachine &operator=(const CStateMachine &other);

    // Closes the events, then the pool waits for its running job. Aborts nothing:
    // call ShutDown first.
    virtual ~CStateMachine();
    virtual long Retry();
    virtual long Ignore();
    virtual long Abort();
    // Takes ownership of `task`. Aborts and waits for a task still running or
    // held, then runs the new one blocking or on the pool.
    virtual long LaunchTask(CStateMachineTask *const task, bool blocking, bool firesEvents);
    // Never called by the library; reserved for the driver.
    virtual void ReservedOperation() = 0;
    // How the driver shows an error to its user.
    virtual void ReportError(const std::string &text) = 0;
    // A non-blocking step failed; by default tells the listener's OnTaskError.
    virtual void NonBlockingError(long code, const std::string &text, CStateMachine *machine,
                                  CStateMachineTask *task, unsigned int reserved);
    // Called once when an abort takes effect.
    virtual void OnUserAbort() = 0;
    virtual void OnRunStart(CStateMachineTask *const task);
    virtual void OnRunFinish(CStateMachineTask *const task, long result);

    // A run stops between states while paused.
    void Pause(bool pause);
    // Aborts and waits, serving messages, for the machine's thread to finish.
    void ShutDown();
    bool IsBusy() const;
    bool IsThreadRunning() const;
    CStateMachineTask *GetLastBlockingTask() { return lastBlockingTask; }
    CStateMachineListener *GetListener() { return listener; }
    void SetListener(CStateMachineListener *newListener) { listener = newListener; }

protected:
    // The body of the pool thread of a non-blocking run.
    static void ExecuteRunNonBlocking(CStateMachineTask *task);

    CThreadPool pool;
    // Auto-reset; the decision of a person for a waiting pool thread.
    HANDLE decisionEvent;
    // -1 nothing decided, 0 ignore, 1 retry, 2 abort.
    std::atomic<short> recoveryAction{-1};
    std::atomic<bool> abortRequested{false};
    std::atomic<bool> paused{false};
    // Manual-reset; clear exactly while a non-blocking run is in progress.
    HANDLE idleEvent;
    // Held for a later Retry, Ignore or Abort; owned.
    std::atomic<CStateMachineTask *> lastBlockingTask{nullptr};
    // True while a Run of the held task is on some thread's stack.
    std::atomic<bool> inBlockingRun{false};
    std::atomic<CStateMachineListener *> listener{nullptr};

    friend class CStateMachineTask;

private:
    // The pumping loop on idleEvent.
    void WaitUntilIdle();
    void DestroyHeldTask();
};
