// What a state machine tells its listener. The interface is its virtual table
// alone, in this order; the machine does not own its listener.
#pragma once

#include <string>

class CStateMachineListener {
public:
    // A run ended with its chain complete.
    virtual void OnTaskCompleted() = 0;
    // A non-blocking run ended by the user's abort.
    virtual void OnTaskAborted() = 0;
    // A text for the user: value -1 with "<operation> completed.", 0xFF with
    // "Error on <operation> : <error>".
    virtual void OnTaskMessage(std::string text, long value) = 0;
    // A non-blocking run's step failed (code 0, the step's error text).
    virtual void OnTaskError(long code, const std::string &text) = 0;

protected:
    ~CStateMachineListener() = default;
};
