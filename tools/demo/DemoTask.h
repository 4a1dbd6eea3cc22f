// The demo's device operation: a chain of states, each of which sends one
// command to the instrument and waits for its reply, on a pool thread of a
// non-blocking CStateMachine.
#pragma once

#include <string>
#include <vector>

#include "qor/comm/QorDeviceComm.h"
#include "qor/platform/Time.h"
#include "qor/task/StateMachine.h"
#include "qor/task/StateMachineTask.h"

namespace qordemo {

class DemoTask : public CStateMachineTask {
public:
    explicit DemoTask(QorDeviceComm &comm) : comm(comm) {}

    bool FirstState() override;
    void OnNonBlockingFinish() override;

    // The states after the first, in order.
    bool ReadStatus();
    bool PrimeInstrument();
    bool RunSlowMeasurement();
    bool CheckHeartbeat();
    bool ReadFinalStatus();

private:
    // Sends `command` and waits for its reply (or the instrument's error
    // reply); reports the step and its round trip. False with lastError set
    // when the reply doesn't come or is an error.
    bool Exchange(const char *step, unsigned char command, const std::vector<unsigned char> &payload,
                  std::vector<unsigned char> &reply, unsigned timeoutMs = 2000);

    QorDeviceComm &comm;
    ULONGLONG started = GetTickCount64();
};

// The machine: reports as the demo's console, and leaves decisions to main.
class DemoMachine : public CStateMachine {
public:
    void ReservedOperation() override {}
    void ReportError(const std::string &text) override;
    void OnUserAbort() override;
};

}  // namespace qordemo
