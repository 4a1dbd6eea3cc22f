#include "qor/task/PumpingWait.h"

#include "qor/platform/Messages.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"

namespace qor {

void PumpUntilSignalled(HANDLE object, bool yieldAfterMessage) {
    DWORD result = MsgWaitForMultipleObjects(1, &object, FALSE, INFINITE, QS_ALLINPUT);
    while (result != WAIT_OBJECT_0) {
        // A closed or null handle would otherwise spin here for ever.
        if (result == WAIT_FAILED) return;
        if (WaitForSingleObject(object, 0) == WAIT_OBJECT_0) return;
        MSG msg;
        if (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessage(&msg);
        }
        if (yieldAfterMessage) Sleep(0);
        result = MsgWaitForMultipleObjects(1, &object, FALSE, INFINITE, QS_ALLINPUT);
    }
}

}  // namespace qor
