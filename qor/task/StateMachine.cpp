#include "qor/task/StateMachine.h"

#include "qor/platform/Messages.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"
#include "qor/task/PumpingWait.h"

namespace qor::machine_detail {
namespace {

// What a person decided for a failed non-blocking step.
enum RecoveryAction : short { kUndecided = -1, kIgnore = 0, kRetry = 1, kAbort = 2 };

constexpr long kCompletedMessageValue = -1;
constexpr DWORD kHeldTaskPollMilliseconds = 50;

constexpr const char *kNoAbortText = "No task to abort!";
constexpr const char *kNoRetryText = "No task to retry!";
constexpr const char *kNoIgnoreText = "No task to ignore!";
constexpr const char *kUnspecifiedFailureText = "Unspecified failure";

void TellCompleted(CStateMachineListener *listener, CStateMachineTask *task) {
    if (!listener) return;
    if (!task->operationName.empty())
        listener->OnTaskMessage(task->operationName + " completed.", kCompletedMessageValue);
    listener->OnTaskCompleted();
}

bool IsSignalled(HANDLE event) { return WaitForSingleObject(event, 0) == WAIT_OBJECT_0; }

}  // namespace
}  // namespace qor::machine_detail


CStateMachine::CStateMachine()
    : pool(1, 1, true),
      decisionEvent(CreateEvent(nullptr, FALSE, FALSE, nullptr)),
      idleEvent(CreateEvent(nullptr, TRUE, TRUE, nullptr)) {}

CStateMachine::CStateMachine(const CStateMachine &other)
    : pool(other.pool),
      decisionEvent(other.decisionEvent),
      recoveryAction(other.recoveryAction.load()),
      abortRequested(other.abortRequested.load()),
      paused(other.paused.load()),
      idleEvent(other.idleEvent),
      lastBlockingTask(other.lastBlockingTask.load()),
      inBlockingRun(other.inBlockingRun.load()),
      listener(other.listener.load()) {}

CStateMachine &CStateMachine::operator=(const CStateMachine &other) {
    pool = other.pool;
    decisionEvent = other.decisionEvent;
    recoveryAction = other.recoveryAction.load();
    abortRequested = other.abortRequested.load();
    paused = other.paused.load();
    idleEvent = other.idleEvent;
    lastBlockingTask = other.lastBlockingTask.load();
    inBlockingRun = other.inBlockingRun.load();
    listener = other.listener.load();
    return *this;
}

CStateMachine::~CStateMachine() {
    CloseHandle(idleEvent);
    CloseHandle(decisionEvent);
}

void CStateMachine::WaitUntilIdle() { qor::PumpUntilSignalled(idleEvent, true); }

void CStateMachine::DestroyHeldTask() {
    delete lastBlockingTask.exchange(nullptr);
}

long CStateMachine::LaunchTask(CStateMachineTask *const task, bool blocking, bool firesEvents) {
    using namespace qor::machine_detail;
    task->firesEvents = firesEvents;
    if (!IsSignalled(idleEvent)) {
        Abort();
        WaitUntilIdle();
    }
    if (lastBlockingTask) {
        Abort();
        // Only a run still on some stack keeps the task held past the abort;
        // it lets go at its next state boundary.
        while (lastBlockingTask) {
            MSG msg;
            while (lastBlockingTask && PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
                TranslateMessage(&msg);
                DispatchMessage(&msg);
            }
            Sleep(kHeldTaskPollMilliseconds);
        }
    }
    paused = false;
    task->blocking = blocking;
    task->machine = this;
    if (!blocking) return task->RunNonBlocking();

    DestroyHeldTask();
    lastBlockingTask = task;
    inBlockingRun = true;
    const long result = task->Run();
    switch (qor::TaskResultKind(result)) {
        case 0:
            TellCompleted(listener, task);
            delete task;
            lastBlockingTask = nullptr;
            break;
        case 1:
            ReportError(task->GetLastError());  // held for a decision
            break;
        case 2:
            ReportError(task->GetLastError());
            delete task;
            lastBlockingTask = nullptr;
            break;
    }
    inBlockingRun = false;
    return result;
}

void CStateMachine::ExecuteRunNonBlocking(CStateMachineTask *task) {
    using namespace qor::machine_detail;
    CStateMachine *machine = task->machine;
    WaitForSingleObject(machine->idleEvent, INFINITE);
    ResetEvent(machine->idleEvent);
    bool aborted = false;
    for (bool running = true; running;) {
        const long result = task->Run();
        switch (qor::TaskResultKind(result)) {
            case 1:
                machine->recoveryAction = kUndecided;
                machine->ReportError(task->GetLastError());
                machine->NonBlockingError(0, task->GetLastError(), machine, task, 0);
                WaitForSingleObject(machine->decisionEvent, INFINITE);
                switch (machine->recoveryAction.load()) {
                    case kIgnore:
                        task->Ignore();
                        break;
                    case kRetry:
                        task->Retry();
                        break;
                    case kAbort:
                        break;  // the pending abort ends the next Run at once
                    default:
                        running = false;
                        break;
                }
                break;
            case 2:
                aborted = true;
                // An Abort that found the task running left its signal here.
                ResetEvent(machine->decisionEvent);
                running = false;
                break;
            default:
                running = false;
                break;
        }
    }
    // Idle before the callbacks, so that a listener may launch the next task.
    SetEvent(machine->idleEvent);
    CStateMachineListener *listener = machine->listener;
    if (aborted) {
        if (listener) listener->OnTaskAborted();
        return;
    }
    task->OnNonBlockingFinish();
    TellCompleted(listener, task);
}

long CStateMachine::Abort() {
    using namespace qor::machine_detail;
    if (!IsSignalled(idleEvent)) {
        abortRequested = true;
        recoveryAction = kAbort;
        SetEvent(decisionEvent);
        return qor::kTaskSucceeded;
    }
    CStateMachineTask *task = lastBlockingTask;
    if (!task) {
        ReportError(kNoAbortText);
        return qor::kTaskFailed;
    }
    abortRequested = true;
    if (inBlockingRun) return qor::kTaskSucceeded;  // the running Run sees the flag
    task->Run();  // takes the abort path at once
    ReportError(task->GetLastError());
    DestroyHeldTask();
    inBlockingRun = false;
    return qor::kTaskSucceeded;
}

long CStateMachine::Retry() {
    using namespace qor::machine_detail;
    if (!IsSignalled(idleEvent)) {
        recoveryAction = kRetry;
        SetEvent(decisionEvent);
        return qor::kTaskSucceeded;
    }
    CStateMachineTask *task = lastBlockingTask;
    if (!task) {
        ReportError(kNoRetryText);
        return qor::kTaskFailed;
    }
    task->Retry();
    // Resuming is the same as for an ignore; only currentState differs.
    return Ignore();
}

long CStateMachine::Ignore() {
    using namespace qor::machine_detail;
    if (!IsSignalled(idleEvent)) {
        recoveryAction = kIgnore;
        SetEvent(decisionEvent);
        return qor::kTaskSucceeded;
    }
    CStateMachineTask *task = lastBlockingTask;
    if (!task) {
        ReportError(kNoIgnoreText);
        return qor::kTaskFailed;
    }
    inBlockingRun = true;
    // The whole result is compared here, not its low 16 bits.
    const long result = task->Run();
    if (result == 0) {
        DestroyHeldTask();
        inBlockingRun = false;
        return qor::kTaskSucceeded;
    }
    if (result == 2) {
        // Run never returns 2; the branch stays as drivers have always had it.
        ReportError(task->GetLastError());
        DestroyHeldTask();
        inBlockingRun = false;
        return 2;
    }
    inBlockingRun = false;
    CStateMachineTask *held = lastBlockingTask;
    ReportError(held ? held->GetLastError() : std::string(kUnspecifiedFailureText));
    return qor::kTaskFailed;
}

void CStateMachine::NonBlockingError(long code, const std::string &text, CStateMachine *, CStateMachineTask *,
                                     unsigned int) {
    if (CStateMachineListener *current = listener) current->OnTaskError(code, text);
}

void CStateMachine::OnRunStart(CStateMachineTask *const) {}

void CStateMachine::OnRunFinish(CStateMachineTask *const, long) {}

void CStateMachine::Pause(bool pause) { paused = pause; }

void CStateMachine::ShutDown() {
    Abort();
    WaitUntilIdle();
}

bool CStateMachine::IsBusy() const { return !qor::machine_detail::IsSignalled(idleEvent) || lastBlockingTask != nullptr; }

bool CStateMachine::IsThreadRunning() const { return !qor::machine_detail::IsSignalled(idleEvent); }
