// A task: a chain of states that a CStateMachine runs. A state is a member
// operation that does one step, leaves the next state in `currentState`
// (null ends the chain), writes `lastError` when it fails, and returns true
// for success. A driver derives from this class and supplies FirstState and
// OnNonBlockingFinish; the virtual table order below is part of the contract.
#pragma once

#include <string>

class CStateMachine;

class CStateMachineTask {
public:
    using State = bool (CStateMachineTask::*)();

    // Both states start at FirstState, called through the virtual table so
    // the derived class's first step runs.
    CStateMachineTask();
    CStateMachineTask(const CStateMachineTask &) = default;
    CStateMachineTask &operator=(const CStateMachineTask &) = default;

    virtual ~CStateMachineTask();
    // False by default; the machine never asks, a driver may.
    virtual bool IsBadArgs();
    virtual std::string GetLastError() const;
    // Called once when a run ends by the user's abort.
    virtual void Abort();
    // Called before a non-blocking run resumes past a failed state.
    virtual void Ignore();
    // Goes back to the failed state: currentState = lastState.
    virtual void Retry();
    // Called after each state that succeeded (or was cut short by an abort).
    virtual void OnStateSucceeded();
    // Hands the task to a pool thread of its machine; the thread destroys it.
    virtual long RunNonBlocking();
    virtual bool FirstState() = 0;
    // Called on the pool thread when a non-blocking run ends other than by abort.
    virtual void OnNonBlockingFinish() = 0;

    bool TaskFiresEvents() const { return firesEvents; }
    void SetOperationName(std::string name) { operationName = std::move(name); }
    std::string GetOperationName() { return operationName; }

    // Sets the next state from a derived class's member operation.
    template <class Derived>
    void SetNextState(bool (Derived::*state)()) {
        currentState = static_cast<State>(state);
    }

    bool blocking = false;
    State currentState;
    State lastState;
    CStateMachine *machine = nullptr;
    std::string lastError;
    bool firesEvents = true;
    std::string operationName;

protected:
    // Runs the chain from currentState until it ends (0), a state fails
    // (0x80040001) or an abort takes effect (0x00040002).
    long Run();

    friend class CStateMachine;

private:
    // The pool thread's job for a non-blocking run: runs, then destroys the task.
    static unsigned RunOnPoolThread(void *task);
};
