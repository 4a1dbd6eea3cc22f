// What the window layout and widget tests share: the running application,
// registry hives in a temporary folder, a shown frame to hold controls, and
// pointer events delivered to a window.
#pragma once

#include <gtest/gtest.h>
#include <wx/frame.h>

#include <chrono>

#include "GuiTestSupport.h"
#include "settings/SettingsTestSupport.h"

namespace widgets_test {

// Each test runs the application's loop (see GuiTestSupport.h) through Until.
class WidgetsTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(gui_test::EnsureApp()); }
    void TearDown() override {
        if (frame) frame->Destroy();
        Settle();
    }

    // Runs the loop until done() holds; false when the time ran out first.
    template <class Done>
    bool Until(Done done, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        return gui_test::PumpUntil(done, limit);
    }
    // Runs what is waiting now and what that brings on.
    void Settle() { gui_test::Pump(); }

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
