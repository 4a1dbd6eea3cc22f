// A device driver built on the task classes: homing an axis as a chain of
// states. The sensor search fails once (as a real axis does when it starts
// on the sensor), the operator chooses Retry, and the task completes.
//
// It shows both ways to run a task:
//   - blocking: LaunchTask returns the result; a failed task is held by the
//     machine until Retry, Ignore or Abort;
//   - non-blocking: the task runs on the machine's pool thread; failures and
//     completion arrive as listener callbacks on that thread, and the
//     operator's decision may come from any thread.
#include <cstdio>
#include <string>

#include "qor/task.h"

namespace {

// The axis the driver talks to. A real driver would send commands here.
struct Axis {
    int searchesLeftToFail = 1;
    int position = 0;
};

// The homing operation: search the sensor, back off, set the origin.
class HomeAxisTask : public CStateMachineTask {
public:
    explicit HomeAxisTask(Axis &axis) : axis(axis) { SetOperationName("Home axis"); }

    // The first state is where every new task starts.
    bool FirstState() override {
        std::printf("  searching the home sensor\n");
        if (axis.searchesLeftToFail > 0) {
            --axis.searchesLeftToFail;
            lastError = "Home sensor not found";
            return false;  // currentState stays here, so Retry repeats the search
        }
        axis.position = -120;
        SetNextState(&HomeAxisTask::BackOff);
        return true;
    }

    // Called on the pool thread when a non-blocking run completes.
    void OnNonBlockingFinish() override { std::printf("  axis homed at %d\n", axis.position); }

private:
    bool BackOff() {
        std::printf("  backing off the sensor\n");
        axis.position += 20;
        SetNextState(&HomeAxisTask::SetOrigin);
        return true;
    }
    bool SetOrigin() {
        std::printf("  setting the origin\n");
        axis.position = 0;
        currentState = nullptr;  // the chain ends here
        return true;
    }

    Axis &axis;
};

// The driver: how errors reach the operator, what an abort must undo.
class AxisDriver : public CStateMachine {
public:
    void ReservedOperation() override {}
    void ReportError(const std::string &text) override { std::printf("  driver error: %s\n", text.c_str()); }
    void OnUserAbort() override { std::printf("  aborted: stopping the axis\n"); }
};

// Stands in for the scheduler's window: it learns of errors and completion.
class Operator : public CStateMachineListener {
public:
    Operator()
        : failed(CreateEvent(nullptr, FALSE, FALSE, nullptr)),
          finished(CreateEvent(nullptr, TRUE, FALSE, nullptr)) {}
    ~Operator() {
        CloseHandle(failed);
        CloseHandle(finished);
    }
    void OnTaskCompleted() override {
        completed = true;
        SetEvent(finished);
    }
    void OnTaskAborted() override { SetEvent(finished); }
    void OnTaskMessage(std::string text, long value) override {
        std::printf("  message (%ld): %s\n", value, text.c_str());
    }
    void OnTaskError(long, const std::string &) override { SetEvent(failed); }

    HANDLE failed;    // a step failed and waits for a decision
    HANDLE finished;  // the run ended
    bool completed = false;
};

}  // namespace

int main() {
    Axis axis;
    AxisDriver driver;
    Operator person;
    driver.SetListener(&person);

    std::printf("blocking run:\n");
    long result = driver.LaunchTask(new HomeAxisTask(axis), true, true);
    if (result != qor::kTaskFailed) return 1;
    // The failed task is held; the operator's Retry resumes it on this thread.
    if (driver.Retry() != qor::kTaskSucceeded || driver.IsBusy()) return 2;
    std::printf("  blocking homing done, position %d\n", axis.position);

    std::printf("non-blocking run:\n");
    axis.searchesLeftToFail = 1;
    if (driver.LaunchTask(new HomeAxisTask(axis), false, true) != qor::kTaskSucceeded) return 3;
    // A window thread would wait with AlertablePumpingSleep to keep its
    // messages flowing; this one has none, and that wait serves as well.
    AlertablePumpingSleep(person.failed);
    std::printf("  operator chooses Retry\n");
    driver.Retry();
    AlertablePumpingSleep(person.finished);
    // The pool thread destroys the task after its last callback, and the
    // machine's destructor waits for that. A driver that may go away while a
    // task still runs calls ShutDown() first: the destructor aborts nothing.
    if (!person.completed || axis.position != 0) return 4;
    return 0;
}
