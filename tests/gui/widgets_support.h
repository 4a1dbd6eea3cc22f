// What the window layout and widget tests share: the running application,
// registry hives in a temporary folder, a shown frame to hold controls, and
// pointer events delivered to a window.
#pragma once

#include <gtest/gtest.h>
#include <wx/evtloop.h>
#include <wx/frame.h>

#include <algorithm>
#include <chrono>
#include <memory>

#include "GuiTestSupport.h"
#include "settings/SettingsTestSupport.h"

namespace widgets_test {

// The application's Pending and Dispatch only reach the toolkit through an
// active event loop, and its idle processing leaves posted calls waiting:
// without a loop no window is ever painted, no timer fires and no CallAfter
// runs. Each test has a loop of its own, and Until runs it.
class WidgetsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(gui_test::EnsureApp());
        loop = std::make_unique<wxGUIEventLoop>();
        active = std::make_unique<wxEventLoopActivator>(loop.get());
    }
    void TearDown() override {
        if (frame) frame->Destroy();
        Until([] { return false; }, std::chrono::milliseconds(0));
        active.reset();
        loop.reset();
    }

    // Runs the loop until done() holds, waking for each event rather than
    // on a clock; false when the time ran out first.
    template <class Done>
    bool Until(Done done, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        using Clock = std::chrono::steady_clock;
        const auto end = Clock::now() + limit;
        for (;;) {
            while (loop->Pending()) loop->Dispatch();
            wxTheApp->ProcessPendingEvents();  // posted calls
            const bool more = loop->ProcessIdle();
            if (done()) return true;
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
            if (left.count() <= 0) return false;
            if (!more) loop->DispatchTimeout(static_cast<unsigned long>(std::min<long long>(left.count(), 50)));
        }
    }
    // Runs what is waiting now and what that brings on.
    void Settle() { Until([] { return false; }, std::chrono::milliseconds(0)); }

    // A shown frame to hold controls, made on first use.
    wxFrame *Host() {
        if (!frame) {
            frame = new wxFrame(nullptr, wxID_ANY, "widgets test", wxPoint(50, 50), wxSize(600, 400));
            frame->Show();
            EXPECT_TRUE(Until([this] { return frame->IsShownOnScreen(); }));
        }
        return frame;
    }

    settings_test::TempHives hives;
    std::unique_ptr<wxGUIEventLoop> loop;
    std::unique_ptr<wxEventLoopActivator> active;
    wxFrame *frame = nullptr;
};

// Delivers a left-button or motion event at `at` (in `window`'s client
// coordinates) as the toolkit would.
inline void Mouse(wxWindow *window, wxEventType type, wxPoint at) {
    wxMouseEvent event(type);
    event.SetPosition(at);
    event.SetEventObject(window);
    event.SetId(window->GetId());
    event.m_leftDown = type == wxEVT_LEFT_DOWN || type == wxEVT_MOTION;
    window->ProcessWindowEvent(event);
}

}  // namespace widgets_test
