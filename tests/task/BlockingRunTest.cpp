// Blocking runs: on the caller's thread, with the failed task held for a
// person's Retry, Ignore or Abort.
#include <gtest/gtest.h>

#include "../platform/ThreadHelpers.h"
#include "TaskFixtures.h"

namespace tasktest {
namespace {

class BlockingRun : public MachineFixture {
protected:
    BlockingRun() : MachineFixture("Home") {}
    ~BlockingRun() override { EXPECT_EQ(lifetimes.made, lifetimes.destroyed); }
};

TEST_F(BlockingRun, RunsEveryStateAndReportsCompletion) {
    ScriptedTask *task = NewTask(3);
    // The task learns whether it fires events before anything runs.
    bool firesEvents = true;
    task->hooks[0] = [&] { firesEvents = task->TaskFiresEvents(); };
    EXPECT_EQ(machine.LaunchTask(task, true, false), qor::kTaskSucceeded);
    EXPECT_FALSE(firesEvents);
    EXPECT_EQ(journal.Entries(),
              (Entries{"OnRunStart", "step 0", "OnStateSucceeded", "step 1", "OnStateSucceeded", "step 2",
                       "OnStateSucceeded", "OnRunFinish 0", "OnTaskMessage Home completed. -1",
                       "OnTaskCompleted", "destroyed"}));
    EXPECT_FALSE(machine.IsBusy());
    EXPECT_EQ(machine.GetLastBlockingTask(), nullptr);
}

TEST_F(BlockingRun, TaskThatStartsEndedFinishesWithoutRunStart) {
    ScriptedTask *task = NewTask(1, "");
    task->currentState = nullptr;
    EXPECT_EQ(machine.LaunchTask(task, true, true), qor::kTaskSucceeded);
    // No name: no "completed." text, but the completion still comes.
    EXPECT_EQ(journal.Entries(), (Entries{"OnRunFinish 0", "OnTaskCompleted", "destroyed"}));
}

TEST_F(BlockingRun, FailureHoldsTheTaskUntilAnAbortFromAnotherThread) {
    ScriptedTask *task = NewTask(2);
    task->failures[1] = 1;
    EXPECT_EQ(machine.LaunchTask(task, true, true), qor::kTaskFailed);
    EXPECT_EQ(journal.Entries(),
              (Entries{"OnRunStart", "step 0", "OnStateSucceeded", "step 1",
                       "OnTaskMessage Error on Home : step 1 failed 255", "OnRunFinish " + kFailed,
                       "ReportError step 1 failed"}));
    EXPECT_EQ(machine.GetLastBlockingTask(), task);
    EXPECT_TRUE(machine.IsBusy());
    EXPECT_FALSE(machine.IsThreadRunning());
    long result = -1;
    threadtest::RunOnOtherThread([&] { result = machine.Abort(); });
    EXPECT_EQ(result, qor::kTaskSucceeded);
    const Entries all = journal.Entries();
    EXPECT_EQ(Entries(all.end() - 5, all.end()),
              (Entries{"task Abort", "OnUserAbort", "OnRunFinish " + kAborted, "ReportError User abort",
                       "destroyed"}));
    EXPECT_FALSE(machine.IsBusy());
}

TEST_F(BlockingRun, RetryRepeatsTheFailedStateAndEndsSilently) {
    ScriptedTask *task = NewTask(3);
    task->failures[1] = 1;
    ASSERT_EQ(machine.LaunchTask(task, true, true), qor::kTaskFailed);
    const std::size_t before = journal.Entries().size();
    EXPECT_EQ(machine.Retry(), qor::kTaskSucceeded);
    const Entries all = journal.Entries();
    // The resumed run starts again (OnRunStart), repeats step 1, and on this
    // road sends no completion to the listener.
    EXPECT_EQ(Entries(all.begin() + before, all.end()),
              (Entries{"task Retry", "OnRunStart", "step 1", "OnStateSucceeded", "step 2", "OnStateSucceeded",
                       "OnRunFinish 0", "destroyed"}));
    EXPECT_FALSE(machine.IsBusy());
}

TEST_F(BlockingRun, IgnoreGoesOnWhereTheFailedStateLeftOff) {
    ScriptedTask *task = NewTask(3);
    task->failures[1] = 1;
    task->moveOnWhenFailing = true;
    ASSERT_EQ(machine.LaunchTask(task, true, true), qor::kTaskFailed);
    EXPECT_EQ(machine.Ignore(), qor::kTaskSucceeded);
    EXPECT_EQ(journal.Count("step 1"), 1);
    EXPECT_EQ(journal.Count("step 2"), 1);
    // The blocking road never calls the task's own Ignore().
    EXPECT_FALSE(journal.Has("task Ignore"));
    EXPECT_FALSE(journal.Has("OnTaskCompleted"));
}

TEST_F(BlockingRun, AbortInsideARunTakesEffectAtTheNextStateBoundary) {
    ScriptedTask *task = NewTask(3);
    // The abort comes while step 0 runs; step 0 then fails, which is no
    // failure once an abort is pending: no "Error on" text.
    task->hooks[0] = [&] { EXPECT_EQ(machine.Abort(), qor::kTaskSucceeded); };
    task->failures[0] = 1;
    EXPECT_EQ(machine.LaunchTask(task, true, true), qor::kTaskUserAbort);
    EXPECT_FALSE(journal.Has("step 1"));
    EXPECT_EQ(journal.Count("OnUserAbort"), 1);
    EXPECT_EQ(journal.Count("OnStateSucceeded"), 1);
    EXPECT_FALSE(journal.Has("OnTaskMessage Error on Home : step 0 failed 255"));
    EXPECT_TRUE(journal.Has("ReportError User abort"));
    EXPECT_FALSE(machine.IsBusy());
}

TEST_F(BlockingRun, IgnoreEndedByAbortKeepsTheTask) {
    ScriptedTask *task = NewTask(3);
    task->failures[0] = 1;
    ASSERT_EQ(machine.LaunchTask(task, true, true), qor::kTaskFailed);
    task->hooks[1] = [&] { machine.Abort(); };
    task->moveOnWhenFailing = true;
    EXPECT_EQ(machine.Retry(), qor::kTaskFailed);
    const Entries all = journal.Entries();
    EXPECT_EQ(all.back(), "ReportError User abort");
    EXPECT_EQ(machine.GetLastBlockingTask(), task);
    EXPECT_EQ(lifetimes.destroyed, 0);
    // A second abort takes the held task's abort path and frees it.
    EXPECT_EQ(machine.Abort(), qor::kTaskSucceeded);
    EXPECT_EQ(machine.GetLastBlockingTask(), nullptr);
}

TEST_F(BlockingRun, DecisionsWithoutATaskAreRefusedWithTheirTexts) {
    struct Case {
        long (CStateMachine::*operation)();
        const char *text;
    };
    const Case cases[] = {{&CStateMachine::Abort, "ReportError No task to abort!"},
                          {&CStateMachine::Retry, "ReportError No task to retry!"},
                          {&CStateMachine::Ignore, "ReportError No task to ignore!"}};
    for (const Case &c : cases) {
        EXPECT_EQ((machine.*c.operation)(), qor::kTaskFailed) << c.text;
        EXPECT_EQ(journal.Entries().back(), c.text);
    }
    machine.ShutDown();
    EXPECT_EQ(journal.Entries().back(), "ReportError No task to abort!");
}

TEST_F(BlockingRun, LaunchReplacesAHeldTaskAfterAbortingIt) {
    ScriptedTask *first = NewTask(1, "First");
    first->failures[0] = 1;
    ASSERT_EQ(machine.LaunchTask(first, true, true), qor::kTaskFailed);
    machine.Pause(true);  // a new launch clears the pause
    EXPECT_EQ(machine.LaunchTask(NewTask(1, "Second"), true, true), qor::kTaskSucceeded);
    EXPECT_EQ(lifetimes.destroyed, 2);
    EXPECT_TRUE(journal.Has("OnTaskMessage Second completed. -1"));
    EXPECT_EQ(journal.Count("OnUserAbort"), 1);
}

}  // namespace
}  // namespace tasktest
