// One wxWidgets application for the whole GUI test binary, started on first
// use, and a way to let it run until something has happened. The binary runs
// under xvfb-run, so the windows are real X11 windows on a private server.
#pragma once

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <chrono>
#include <thread>

namespace gui_test {

// Starts the application once; true when it is running.
inline bool EnsureApp() {
    static const bool started = [] {
        wxApp::SetInstance(new wxApp);
        static char name[] = "test_gui";
        static char *argv[] = {name, nullptr};
        int argc = 1;
        return wxEntryStart(argc, argv) && wxTheApp->CallOnInit();
    }();
    return started;
}

// Dispatches pending events until done() holds or the time runs out; true
// when done() held. Waits for events, not for a fixed time.
template <class Done>
bool PumpUntil(Done done, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
    const auto end = std::chrono::steady_clock::now() + limit;
    for (;;) {
        while (wxTheApp->Pending()) wxTheApp->Dispatch();
        wxTheApp->ProcessIdle();
        if (done()) return true;
        if (std::chrono::steady_clock::now() >= end) return false;
        wxMilliSleep(1);
    }
}

// Dispatches what is pending now, and what that posts in turn.
inline void Pump() {
    for (int i = 0; i < 3; ++i) {
        wxYield();
        while (wxTheApp->Pending()) wxTheApp->Dispatch();
        wxTheApp->ProcessIdle();
    }
}

}  // namespace gui_test
