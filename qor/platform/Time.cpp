// Milliseconds on the monotonic clock, and sleeping.
#include <sched.h>

#include <chrono>
#include <thread>

#include "qor/platform/Time.h"

void Sleep(DWORD milliseconds) {
    if (milliseconds == 0) {
        sched_yield();  // gives up the rest of the time slice, as Sleep(0) does
        return;
    }
    if (milliseconds == INFINITE) {
        for (;;) std::this_thread::sleep_for(std::chrono::hours(24));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

ULONGLONG GetTickCount64() {
    using namespace std::chrono;
    return static_cast<ULONGLONG>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// Wraps after 49.7 days, as on Windows.
DWORD GetTickCount() { return static_cast<DWORD>(GetTickCount64()); }
