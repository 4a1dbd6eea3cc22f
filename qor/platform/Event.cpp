// Events: a flag that waits test; an auto-reset event gives its signal to one
// waiter only.
#include "qor/platform/SystemError.h"
#include "qor/platform/Waitable.h"
#include "qor/platform/detail/Kernel.h"

namespace qor::kernel {
namespace {

class EventObject final : public Object {
public:
    EventObject(bool manualReset, bool signalled) : manualReset(manualReset), signalled(signalled) {}
    bool Ready(DWORD) const override { return signalled; }
    bool Take(DWORD) override {
        if (!manualReset) signalled = false;
        return false;
    }
    const bool manualReset;
    bool signalled;
};

EventObject *FindEvent(HANDLE handle) {
    return dynamic_cast<EventObject *>(Find(handle));
}

BOOL SetEventState(HANDLE handle, bool signalled) {
    Guard guard;
    EventObject *event = FindEvent(handle);
    if (!event) {
        SetLastError(6);  // ERROR_INVALID_HANDLE
        return FALSE;
    }
    event->signalled = signalled;
    if (signalled) event->WakeWaiters();
    return TRUE;
}

}  // namespace
}  // namespace qor::kernel

HANDLE CreateEvent(void *, BOOL manualReset, BOOL initialState, const char *) {
    using namespace qor::kernel;
    auto *event = new EventObject(manualReset != FALSE, initialState != FALSE);
    Guard guard;
    return Register(event);
}

BOOL SetEvent(HANDLE event) { return qor::kernel::SetEventState(event, true); }

BOOL ResetEvent(HANDLE event) { return qor::kernel::SetEventState(event, false); }
