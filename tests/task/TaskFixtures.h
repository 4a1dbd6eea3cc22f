// Real machines, tasks and listeners for the task tests: they record every
// callback, in order, with the thread it came on, and count task lifetimes.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qor/task.h"

namespace tasktest {

// A thread-safe list of what happened, which tests wait on.
class Journal {
public:
    Journal() : changed(CreateEvent(nullptr, FALSE, FALSE, nullptr)) {}
    ~Journal() { CloseHandle(changed); }

    void Add(const std::string &entry) {
        {
            std::lock_guard<std::mutex> hold(lock);
            entries.push_back(entry);
        }
        SetEvent(changed);
    }
    std::vector<std::string> Entries() const {
        std::lock_guard<std::mutex> hold(lock);
        return entries;
    }
    bool Has(const std::string &entry) const { return Count(entry) > 0; }
    int Count(const std::string &entry) const {
        std::lock_guard<std::mutex> hold(lock);
        int n = 0;
        for (const auto &e : entries) n += e == entry;
        return n;
    }
    // Blocks until `entry` has been added (at least `times` times).
    void WaitFor(const std::string &entry, int times = 1) {
        while (Count(entry) < times) WaitForSingleObject(changed, INFINITE);
    }

private:
    mutable std::mutex lock;
    std::vector<std::string> entries;
    HANDLE changed;
};

// Counts every task made and destroyed, so ownership faults show.
struct Lifetimes {
    std::atomic<int> made{0};
    std::atomic<int> destroyed{0};
};

class TestMachine : public CStateMachine {
public:
    explicit TestMachine(Journal &journal) : journal(journal) {}
    void ReservedOperation() override {}
    void ReportError(const std::string &text) override { journal.Add("ReportError " + text); }
    void OnUserAbort() override { journal.Add("OnUserAbort"); }
    void OnRunStart(CStateMachineTask *const) override { journal.Add("OnRunStart"); }
    void OnRunFinish(CStateMachineTask *const, long result) override {
        journal.Add("OnRunFinish " + std::to_string(result));
    }
    long Abort() override {
        const long result = CStateMachine::Abort();
        if (afterAbort) afterAbort();
        return result;
    }
    std::function<void()> afterAbort;
    Journal &journal;
};

class TestListener : public CStateMachineListener {
public:
    explicit TestListener(Journal &journal) : journal(journal) {}
    void OnTaskCompleted() override { Note("OnTaskCompleted"); }
    void OnTaskAborted() override { Note("OnTaskAborted"); }
    void OnTaskMessage(std::string text, long value) override {
        Note("OnTaskMessage " + text + " " + std::to_string(value));
    }
    void OnTaskError(long code, const std::string &text) override {
        Note("OnTaskError " + std::to_string(code) + " " + text);
    }
    // The thread each callback came on, for the threading rule.
    std::atomic<DWORD> lastThread{0};

private:
    void Note(const std::string &entry) {
        lastThread = GetCurrentThreadId();
        journal.Add(entry);
    }
    Journal &journal;
};

// A chain of `steps` states named "step 0", "step 1", ... Each step can be set
// to fail a number of times, to wait for a gate first, or to run a hook.
class ScriptedTask : public CStateMachineTask {
public:
    ScriptedTask(Journal &journal, Lifetimes &lifetimes, int steps)
        : journal(journal), lifetimes(lifetimes), failures(steps, 0), gates(steps, nullptr), hooks(steps) {
        ++lifetimes.made;
    }
    ~ScriptedTask() override {
        ++lifetimes.destroyed;
        journal.Add("destroyed");
    }

    bool FirstState() override { return Step(0); }
    void OnNonBlockingFinish() override { journal.Add("OnNonBlockingFinish"); }
    void OnStateSucceeded() override { journal.Add("OnStateSucceeded"); }
    void Abort() override { journal.Add("task Abort"); }
    void Ignore() override { journal.Add("task Ignore"); }
    void Retry() override {
        journal.Add("task Retry");
        CStateMachineTask::Retry();
    }

    Journal &journal;
    Lifetimes &lifetimes;
    // When a failing step also moves on (so an ignore skips ahead).
    bool moveOnWhenFailing = false;
    std::vector<int> failures;
    std::vector<HANDLE> gates;
    std::vector<std::function<void()>> hooks;

private:
    bool Step(int index) {
        journal.Add("step " + std::to_string(index));
        if (gates[index]) WaitForSingleObject(gates[index], INFINITE);
        if (hooks[index]) hooks[index]();
        const bool fail = failures[index] > 0;
        if (fail) --failures[index];
        if (!fail || moveOnWhenFailing) SetNext(index + 1);
        if (fail) lastError = "step " + std::to_string(index) + " failed";
        return !fail;
    }
    void SetNext(int index) {
        static const State chain[] = {
            static_cast<State>(&ScriptedTask::Step1), static_cast<State>(&ScriptedTask::Step2),
            static_cast<State>(&ScriptedTask::Step3)};
        currentState = index < static_cast<int>(failures.size()) ? chain[index - 1] : nullptr;
    }
    bool Step1() { return Step(1); }
    bool Step2() { return Step(2); }
    bool Step3() { return Step(3); }
};

// An event that opens once and stays open.
struct Gate {
    Gate() : handle(CreateEvent(nullptr, TRUE, FALSE, nullptr)) {}
    ~Gate() { CloseHandle(handle); }
    void Open() { SetEvent(handle); }
    HANDLE handle;
};

// A machine with a recording listener; tasks are named `defaultName` unless told.
class MachineFixture : public ::testing::Test {
protected:
    explicit MachineFixture(const char *defaultName) : defaultName(defaultName) { machine.SetListener(&listener); }
    ScriptedTask *NewTask(int steps, const char *name = nullptr) {
        auto *task = new ScriptedTask(journal, lifetimes, steps);
        task->SetOperationName(name ? name : defaultName);
        return task;
    }
    const char *defaultName;
    Journal journal;
    Lifetimes lifetimes;
    TestMachine machine{journal};
    TestListener listener{journal};
};

using Entries = std::vector<std::string>;

// How OnRunFinish results read in a journal.
inline const std::string kFailed = std::to_string(qor::kTaskFailed);
inline const std::string kAborted = std::to_string(qor::kTaskUserAbort);

}  // namespace tasktest
