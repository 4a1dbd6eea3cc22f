#include "qor/task/StateMachineTask.h"

#include "qor/platform/Time.h"
#include "qor/task/StateMachine.h"

namespace qor::task_detail {
namespace {

constexpr DWORD kPausePollMilliseconds = 20;
constexpr long kErrorMessageValue = 0xFF;

}  // namespace
}  // namespace qor::task_detail

CStateMachineTask::CStateMachineTask()
    : currentState(&CStateMachineTask::FirstState), lastState(&CStateMachineTask::FirstState) {}

CStateMachineTask::~CStateMachineTask() = default;

bool CStateMachineTask::IsBadArgs() { return false; }

std::string CStateMachineTask::GetLastError() const { return lastError; }

void CStateMachineTask::Abort() {}

void CStateMachineTask::Ignore() {}

void CStateMachineTask::Retry() { currentState = lastState; }

void CStateMachineTask::OnStateSucceeded() {}

long CStateMachineTask::Run() {
    using namespace qor::task_detail;
    lastError.clear();
    bool runStartPending = true;
    for (;;) {
        // Paused runs look again every 20 ms; an abort also ends a pause.
        for (bool firstPass = true;; firstPass = false) {
            if (machine->abortRequested) goto userAbort;
            if (!firstPass) Sleep(kPausePollMilliseconds);
            if (!machine->paused) break;
        }
        if (!currentState) {
            machine->OnRunFinish(this, qor::kTaskSucceeded);
            return qor::kTaskSucceeded;
        }
        if (runStartPending) {
            machine->OnRunStart(this);
            runStartPending = false;
        }
        lastState = currentState;
        if ((this->*currentState)() || machine->abortRequested) {
            // The state may have moved on; a retry repeats from there.
            lastState = currentState;
            OnStateSucceeded();
            continue;
        }
        if (!operationName.empty()) {
            if (CStateMachineListener *listener = machine->GetListener())
                listener->OnTaskMessage("Error on " + operationName + " : " + GetLastError(), kErrorMessageValue);
        }
        machine->OnRunFinish(this, qor::kTaskFailed);
        return qor::kTaskFailed;
    }
userAbort:
    machine->abortRequested = false;
    lastError = "User abort";
    currentState = nullptr;
    Abort();
    machine->OnUserAbort();
    machine->OnRunFinish(this, qor::kTaskUserAbort);
    return qor::kTaskUserAbort;
}

long CStateMachineTask::RunNonBlocking() {
    void *started = machine->pool.StartThread(&CStateMachineTask::RunOnPoolThread, this, true);
    if (!started) {
        machine->ReportError("Could not launch thread");
        return qor::kTaskNoThread;
    }
    return qor::kTaskSucceeded;
}

unsigned CStateMachineTask::RunOnPoolThread(void *argument) {
    auto *task = static_cast<CStateMachineTask *>(argument);
    CStateMachine::ExecuteRunNonBlocking(task);
    delete task;
    return 0;
}
