// One wxWidgets application for the whole GUI test binary, started on first
// use with an event loop of its own, and a way to let it run until something
// has happened. The binary runs under xvfb-run, so the windows are real X11
// windows on a private server.
#pragma once

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>

#include <algorithm>
#include <chrono>

namespace gui_test {

// The loop that runs the tests' events. The application's Pending and
// Dispatch reach the toolkit only through an active loop: without one no
// window is painted, no timer fires and no posted call runs. It lives as long
// as the process.
inline wxGUIEventLoop *Loop() {
    static wxGUIEventLoop *const loop = new wxGUIEventLoop;
    return loop;
}

// Starts the application once, with the tests' loop active; true when it runs.
inline bool EnsureApp() {
    static const bool started = [] {
        wxApp::SetInstance(new wxApp);
        static char name[] = "test_gui";
        static char *argv[] = {name, nullptr};
        int argc = 1;
        if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) return false;
        wxEventLoopBase::SetActive(Loop());
        return true;
    }();
    return started;
}

// Runs the active loop until done() holds or the time runs out; true when
// done() held. It wakes for each event, never on a clock.
template <class Done>
bool PumpUntil(Done done, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
    using Clock = std::chrono::steady_clock;
    wxEventLoopBase *loop = wxEventLoopBase::GetActive();
    if (loop == nullptr) loop = Loop();
    const auto end = Clock::now() + limit;
    for (;;) {
        while (loop->Pending()) loop->Dispatch();
        wxTheApp->ProcessPendingEvents();  // posted events and calls
        const bool more = loop->ProcessIdle();
        if (done()) return true;
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0) return false;
        if (!more) loop->DispatchTimeout(static_cast<unsigned long>(std::min<long long>(left.count(), 50)));
    }
}

// Runs what is waiting now, and what that brings on.
inline void Pump() {
    PumpUntil([] { return false; }, std::chrono::milliseconds(0));
}

}  // namespace gui_test
