// What the controls' window tests share: a running event loop, pictures of
// windows, and mouse and key input delivered to a window.
#pragma once

#include <gtest/gtest.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/evtloop.h>
#include <wx/image.h>

#include <cstdlib>
#include <memory>

#include "GuiTestSupport.h"

namespace controls_test {

// Pending events reach the toolkit only through an active event loop.
class WindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(gui_test::EnsureApp());
        loop_ = std::make_unique<wxGUIEventLoop>();
        active_ = std::make_unique<wxEventLoopActivator>(loop_.get());
    }
    void TearDown() override {
        if (frame) frame->Destroy();
        gui_test::Pump();
        active_.reset();
        loop_.reset();
    }
    // Shows the frame and waits until it is on the screen and painted.
    void ShowFrame() {
        frame->Show();
        ASSERT_TRUE(gui_test::PumpUntil([this] { return frame->IsShownOnScreen(); }));
        frame->Update();
        gui_test::Pump();
    }
    wxWindow *frame = nullptr;

private:
    std::unique_ptr<wxGUIEventLoop> loop_;
    std::unique_ptr<wxEventLoopActivator> active_;
};

// What the window shows now, as an image; saved as PNG into the folder
// QOR_CONTROLS_SNAPSHOTS names, when it does, for a person to look at.
inline wxImage Snapshot(wxWindow *window, const char *name) {
    window->Update();
    wxClientDC screen(window);
    wxSize size = window->GetClientSize();
    wxBitmap bitmap(size);
    {
        wxMemoryDC memory(bitmap);
        memory.Blit(0, 0, size.x, size.y, &screen, 0, 0);
    }
    wxImage image = bitmap.ConvertToImage();
    if (const char *folder = std::getenv("QOR_CONTROLS_SNAPSHOTS")) {
        wxInitAllImageHandlers();
        image.SaveFile(wxString(folder) + "/" + name + ".png", wxBITMAP_TYPE_PNG);
    }
    return image;
}

// Mean absolute difference per channel, 0 to 255; 255 when the sizes differ.
inline double Difference(const wxImage &a, const wxImage &b) {
    if (a.GetSize() != b.GetSize() || !a.IsOk()) return 255;
    const unsigned char *p = a.GetData(), *q = b.GetData();
    std::size_t n = static_cast<std::size_t>(a.GetWidth()) * a.GetHeight() * 3;
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) sum += std::abs(int(p[i]) - int(q[i]));
    return n ? sum / static_cast<double>(n) : 0;
}

// A press and release of a mouse button at `at`, in the window's client
// coordinates, as the toolkit delivers them.
inline void Click(wxWindow *window, wxPoint at, bool right = false) {
    const wxEventType types[2] = {right ? wxEVT_RIGHT_DOWN : wxEVT_LEFT_DOWN, right ? wxEVT_RIGHT_UP : wxEVT_LEFT_UP};
    for (wxEventType type : types) {
        wxMouseEvent event(type);
        event.SetPosition(at);
        event.SetEventObject(window);
        event.SetId(window->GetId());
        event.m_leftDown = type == wxEVT_LEFT_DOWN;
        event.m_rightDown = type == wxEVT_RIGHT_DOWN;
        window->ProcessWindowEvent(event);
    }
    gui_test::Pump();
}

}  // namespace controls_test
