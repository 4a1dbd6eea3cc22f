#include "qor/task/AlertablePumpingSleep.h"

#include "qor/platform/Messages.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"

namespace qor::sleep_detail {
namespace {
constexpr unsigned long kNoLimit = 0xFFFFFFFFul;
// The longest stretch spent dispatching before the wait looks at its handles again.
constexpr ULONGLONG kDispatchSliceMilliseconds = 1000;
}  // namespace
}  // namespace qor::sleep_detail

long AlertablePumpingSleep(unsigned long milliseconds, unsigned int count, void **handles) {
    using namespace qor::sleep_detail;
    const bool limited = milliseconds != kNoLimit;
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        DWORD wait = INFINITE;
        if (limited) {
            const ULONGLONG now = GetTickCount64();
            if (now > start + milliseconds) return -1;
            wait = static_cast<DWORD>(start + milliseconds - now);
        }
        const DWORD result = MsgWaitForMultipleObjects(count, handles, FALSE, wait, QS_ALLINPUT);
        if (result == WAIT_FAILED) return -2;
        if (result == WAIT_TIMEOUT) return -1;
        if (result < WAIT_OBJECT_0 + count) {
            ResetEvent(handles[result - WAIT_OBJECT_0]);
            return static_cast<long>(result - WAIT_OBJECT_0);
        }
        const ULONGLONG dispatchStart = GetTickCount64();
        MSG msg;
        while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessage(&msg);
            const ULONGLONG now = GetTickCount64();
            if (now - dispatchStart > kDispatchSliceMilliseconds) break;
            if (limited && now - start > milliseconds) break;
        }
    }
}

void AlertablePumpingSleep(void *handle) { AlertablePumpingSleep(qor::sleep_detail::kNoLimit, 1, &handle); }

bool AlertablePumpingSleep(unsigned long milliseconds, void *handle) {
    return AlertablePumpingSleep(milliseconds, 1, &handle) >= 0;
}
