// The pumping loop that the state machine and the thread pool wait with: it
// keeps serving the calling thread's messages, one per wake-up, until the
// object is signalled.
#pragma once

#include "qor/platform/Win32Types.h"

namespace qor {

// Waits without limit for `object`, dispatching the calling thread's
// messages meanwhile. `yieldAfterMessage` adds the Sleep(0) the state
// machine's waits make after each message. Returns at once for a handle that
// cannot be waited on.
void PumpUntilSignalled(HANDLE object, bool yieldAfterMessage);

}  // namespace qor
