// Non-blocking runs: on the machine's pool thread, with decisions coming from
// other threads. Every test waits on callbacks, never on time.
#include <gtest/gtest.h>

#include "../platform/ThreadHelpers.h"
#include "TaskFixtures.h"

namespace tasktest {
namespace {

class NonBlockingRun : public MachineFixture {
protected:
    NonBlockingRun() : MachineFixture("Cycle") {}
    ~NonBlockingRun() override {
        // The pool thread destroys its task after the last callback.
        journal.WaitFor("destroyed", lifetimes.made);
        EXPECT_EQ(lifetimes.made, lifetimes.destroyed);
    }
    // Launches `task` with its first step held at `gate`, failing `failures`
    // times; returns once that step runs.
    ScriptedTask *LaunchAtGate(ScriptedTask *task, int failures = 0) {
        task->gates[0] = gate.handle;
        task->failures[0] = failures;
        machine.LaunchTask(task, false, true);
        journal.WaitFor("step 0");
        return task;
    }
    // Pauses the gated run, then lets its first step end: the run now waits
    // between states.
    void PauseAfterFirstStep() {
        machine.Pause(true);
        gate.Open();
        journal.WaitFor("OnStateSucceeded");
    }
    // Entries from the first `from` on.
    Entries After(const std::string &from) const {
        const Entries all = journal.Entries();
        for (std::size_t i = 0; i < all.size(); ++i)
            if (all[i] == from) return Entries(all.begin() + i, all.end());
        return {};
    }
    Gate gate;
};

TEST_F(NonBlockingRun, CompletesOnThePoolThread) {
    EXPECT_EQ(machine.LaunchTask(NewTask(2), false, true), qor::kTaskSucceeded);
    journal.WaitFor("destroyed");
    EXPECT_EQ(journal.Entries(),
              (Entries{"OnRunStart", "step 0", "OnStateSucceeded", "step 1", "OnStateSucceeded", "OnRunFinish 0",
                       "OnNonBlockingFinish", "OnTaskMessage Cycle completed. -1", "OnTaskCompleted",
                       "destroyed"}));
    EXPECT_NE(listener.lastThread, GetCurrentThreadId());
    EXPECT_FALSE(machine.IsThreadRunning());
}

TEST_F(NonBlockingRun, FailureWaitsForRetryFromAnotherThread) {
    ScriptedTask *task = NewTask(2);
    task->failures[1] = 1;
    machine.LaunchTask(task, false, true);
    journal.WaitFor("OnTaskError 0 step 1 failed");
    // The error reached the user twice, after the listener's "Error on" text.
    EXPECT_EQ(After("step 1"), (Entries{"step 1", "OnTaskMessage Error on Cycle : step 1 failed 255",
                                        "OnRunFinish " + kFailed, "ReportError step 1 failed",
                                        "OnTaskError 0 step 1 failed"}));
    EXPECT_TRUE(machine.IsThreadRunning());
    EXPECT_TRUE(machine.IsBusy());
    EXPECT_EQ(machine.Retry(), qor::kTaskSucceeded);
    journal.WaitFor("destroyed");
    EXPECT_EQ(After("task Retry"),
              (Entries{"task Retry", "OnRunStart", "step 1", "OnStateSucceeded", "OnRunFinish 0",
                       "OnNonBlockingFinish", "OnTaskMessage Cycle completed. -1", "OnTaskCompleted",
                       "destroyed"}));
}

TEST_F(NonBlockingRun, IgnoreCallsTheTasksIgnoreAndGoesOn) {
    ScriptedTask *task = NewTask(3);
    task->failures[1] = 1;
    task->moveOnWhenFailing = true;
    machine.LaunchTask(task, false, true);
    journal.WaitFor("OnTaskError 0 step 1 failed");
    EXPECT_EQ(machine.Ignore(), qor::kTaskSucceeded);
    journal.WaitFor("destroyed");
    EXPECT_EQ(journal.Count("task Ignore"), 1);
    EXPECT_EQ(journal.Count("step 1"), 1);
    EXPECT_EQ(journal.Count("step 2"), 1);
    EXPECT_TRUE(journal.Has("OnTaskCompleted"));
}

TEST_F(NonBlockingRun, AbortOfAWaitingTaskEndsItAsAborted) {
    ScriptedTask *task = NewTask(2);
    task->failures[0] = 1;
    machine.LaunchTask(task, false, true);
    journal.WaitFor("OnTaskError 0 step 0 failed");
    long result = -1;
    threadtest::RunOnOtherThread([&] { result = machine.Abort(); });
    EXPECT_EQ(result, qor::kTaskSucceeded);
    journal.WaitFor("destroyed");
    EXPECT_EQ(After("OnTaskError 0 step 0 failed"),
              (Entries{"OnTaskError 0 step 0 failed", "task Abort", "OnUserAbort", "OnRunFinish " + kAborted,
                       "OnTaskAborted", "destroyed"}));
}

TEST_F(NonBlockingRun, AbortWhileAStateRunsIsNoFailure) {
    LaunchAtGate(NewTask(2), 1);
    EXPECT_EQ(machine.Abort(), qor::kTaskSucceeded);
    gate.Open();
    journal.WaitFor("destroyed");
    EXPECT_FALSE(journal.Has("step 1"));
    EXPECT_FALSE(journal.Has("ReportError step 0 failed"));
    EXPECT_FALSE(journal.Has("OnNonBlockingFinish"));
    EXPECT_EQ(journal.Count("OnTaskAborted"), 1);
    // The abort's leftover decision signal was cleared: the next failing run
    // waits for a real decision.
    ScriptedTask *next = NewTask(1);
    next->failures[0] = 1;
    machine.LaunchTask(next, false, true);
    journal.WaitFor("OnTaskError 0 step 0 failed");
    EXPECT_TRUE(machine.IsThreadRunning());
    machine.Abort();
}

TEST_F(NonBlockingRun, PausedRunWaitsBetweenStatesUntilResumed) {
    ScriptedTask *task = NewTask(2);
    HANDLE stepOneStarted = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    task->hooks[1] = [&] { SetEvent(stepOneStarted); };
    LaunchAtGate(task);
    PauseAfterFirstStep();
    // Nothing moves while paused (a look of several 20 ms polls).
    EXPECT_EQ(WaitForSingleObject(stepOneStarted, 100), WAIT_TIMEOUT);
    EXPECT_TRUE(machine.IsThreadRunning());
    machine.Pause(false);
    journal.WaitFor("destroyed");
    EXPECT_TRUE(journal.Has("OnTaskCompleted"));
    CloseHandle(stepOneStarted);
}

TEST_F(NonBlockingRun, AbortEndsAPause) {
    LaunchAtGate(NewTask(2));
    PauseAfterFirstStep();
    machine.Abort();
    journal.WaitFor("destroyed");
    EXPECT_FALSE(journal.Has("step 1"));
    EXPECT_TRUE(journal.Has("OnTaskAborted"));
}

TEST_F(NonBlockingRun, LaunchWhileRunningAbortsWaitsAndStartsUnpaused) {
    LaunchAtGate(NewTask(2, "First"));
    machine.Pause(true);
    // The launch aborts the running task; its state then gets to its end.
    machine.afterAbort = [&] { gate.Open(); };
    EXPECT_EQ(machine.LaunchTask(NewTask(1, "Second"), false, true), qor::kTaskSucceeded);
    journal.WaitFor("destroyed", 2);
    machine.afterAbort = nullptr;
    EXPECT_EQ(journal.Count("OnTaskAborted"), 1);
    EXPECT_TRUE(journal.Has("OnTaskMessage Second completed. -1"));
    EXPECT_FALSE(journal.Has("OnTaskMessage First completed. -1"));
}

TEST_F(NonBlockingRun, ShutDownAbortsAndWaitsForTheThread) {
    LaunchAtGate(NewTask(2));
    machine.afterAbort = [&] { gate.Open(); };
    machine.ShutDown();
    machine.afterAbort = nullptr;
    EXPECT_FALSE(machine.IsThreadRunning());
    EXPECT_TRUE(journal.Has("OnUserAbort"));
    journal.WaitFor("OnTaskAborted");
}

TEST_F(NonBlockingRun, EarlyDecisionEndsTheNextFailureAsIfFinished) {
    LaunchAtGate(NewTask(2), 1);
    // A retry while nothing has failed leaves the decision signalled; the
    // failure then finds no decision and the run ends like a completed one.
    EXPECT_EQ(machine.Retry(), qor::kTaskSucceeded);
    gate.Open();
    journal.WaitFor("destroyed");
    EXPECT_EQ(After("ReportError step 0 failed"),
              (Entries{"ReportError step 0 failed", "OnTaskError 0 step 0 failed", "OnNonBlockingFinish",
                       "OnTaskMessage Cycle completed. -1", "OnTaskCompleted", "destroyed"}));
    EXPECT_FALSE(journal.Has("step 1"));
}

TEST_F(NonBlockingRun, ListenerMayLaunchTheNextTaskFromItsCallback) {
    struct Chaining : TestListener {
        using TestListener::TestListener;
        void OnTaskCompleted() override {
            TestListener::OnTaskCompleted();
            if (next) {
                CStateMachineTask *task = next;
                next = nullptr;
                machine->LaunchTask(task, false, true);
            }
        }
        CStateMachine *machine = nullptr;
        CStateMachineTask *next = nullptr;
    } chaining(journal);
    chaining.machine = &machine;
    chaining.next = NewTask(1, "Second");
    machine.SetListener(&chaining);
    machine.LaunchTask(NewTask(1, "First"), false, true);
    journal.WaitFor("destroyed", 2);
    EXPECT_TRUE(journal.Has("OnTaskMessage Second completed. -1"));
    journal.WaitFor("OnTaskCompleted", 2);
    machine.SetListener(&listener);
}

}  // namespace
}  // namespace tasktest
