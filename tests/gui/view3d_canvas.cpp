// The 3-D view in a real wx window under Xvfb: it paints what the offscreen
// view paints, turns under a drag, zooms under the wheel and picks on a click.
#include <gtest/gtest.h>

#include <wx/frame.h>

#include <cstdlib>

#include "GuiTestSupport.h"
#include "qor/view3d.h"
#include "qor/view3d/wx/ModelCanvas.h"

namespace {

const std::string kInstrument = std::string(QOR_SOURCE_DIR) + "/examples/models/instrument.xml";

// Loads the example instrument into view, framed from the front.
void LoadInstrument(QorOpenGlModel &view) {
    std::string error;
    ASSERT_TRUE(qor::LoadAssembly(view, kInstrument, error)) << error;
    CScene scene;
    scene.Set(qor::FitScene(qor::PlacedBounds(view.GetModel(view.rootModelName)), 0, 0));
    view.AddView("front", {CCamera(), scene});
    view.SelView("front");
}

// Mean absolute difference per channel between two pictures of one size.
double MeanDifference(const std::vector<std::uint8_t> &a, const std::vector<std::uint8_t> &b) {
    double sum = 0;
    std::size_t n = 0;
    for (std::size_t i = 0; i < a.size(); i += 4, n += 3)
        for (int c = 0; c < 3; ++c) sum += std::abs(int(a[i + c]) - int(b[i + c]));
    return n ? sum / static_cast<double>(n) : 255;
}

void Send(wxWindow *window, wxEventType type, wxPoint at, int wheel = 0) {
    wxMouseEvent event(type);
    event.SetPosition(at);
    event.m_wheelRotation = wheel;
    event.m_wheelDelta = 120;
    event.SetEventObject(window);
    window->GetEventHandler()->ProcessEvent(event);
}

class View3dCanvas : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(gui_test::EnsureApp());
        frame = new wxFrame(nullptr, wxID_ANY, "view3d", wxDefaultPosition, wxSize(320, 260));
        canvas = new qor::wx::ModelCanvas(frame);
        frame->Show();
        ASSERT_TRUE(gui_test::PumpUntil([&] { return canvas->InitView(); })) << "the canvas never got a context";
        LoadInstrument(canvas->View());
        gui_test::Pump();
    }
    void TearDown() override {
        if (frame) frame->Destroy();
        gui_test::Pump();
    }
    wxFrame *frame = nullptr;
    qor::wx::ModelCanvas *canvas = nullptr;
};

TEST_F(View3dCanvas, ShowsWhatTheOffscreenViewDraws) {
    int width = 0, height = 0;
    const auto shown = canvas->Snapshot(width, height);
    ASSERT_GT(width, 100);
    ASSERT_GT(height, 100);
    if (const char *out = std::getenv("QOR_VIEW3D_SNAPSHOT")) qor::WritePng(out, shown, width, height);

    // The same model and view drawn offscreen, compared loosely: the two
    // paths differ in context and buffers, not in what they draw.
    qor::OffscreenGlContext offscreen(width, height);
    ASSERT_TRUE(offscreen) << offscreen.Error();
    std::vector<std::uint8_t> expected;
    {
        QorOpenGlModel view;
        view.InitOpenGL();
        view.OnSize(0, width, height);
        LoadInstrument(view);
        view.OnPaint();
        expected = offscreen.ReadPixels();
    }
    int drawn = 0;
    for (std::size_t i = 0; i < shown.size(); i += 4) drawn += shown[i] < 250 || shown[i + 2] < 250;
    EXPECT_GT(drawn, width * height / 10) << "the window shows (almost) nothing";
    EXPECT_LT(MeanDifference(shown, expected), 4.0);
}

TEST_F(View3dCanvas, DragTurnsWheelZoomsAndAClickPicks) {
    QorOpenGlModel &view = canvas->View();
    view.leftButton.function = 1;
    view.wheelFunction = 4;
    int picked = -1;
    canvas->SetPickHandler([&](int id) { picked = id; });

    // The deck is the root, drawn without a placement, at the window's
    // lower middle in the front view.
    int width = 0, height = 0;
    canvas->Snapshot(width, height);
    Send(canvas, wxEVT_LEFT_DOWN, {width / 2, height * 3 / 4});
    Send(canvas, wxEVT_LEFT_UP, {width / 2, height * 3 / 4});
    EXPECT_EQ(picked, 1);
    Send(canvas, wxEVT_LEFT_DOWN, {2, 2});
    Send(canvas, wxEVT_LEFT_UP, {2, 2});
    EXPECT_EQ(picked, 0);

    const CScene before = view.GetCurrentScene();
    Send(canvas, wxEVT_LEFT_DOWN, {100, 100});
    Send(canvas, wxEVT_MOTION, {140, 105});
    Send(canvas, wxEVT_LEFT_UP, {140, 105});
    EXPECT_NE(view.GetCurrentScene(), before);
    EXPECT_FALSE(canvas->HasCapture());

    Send(canvas, wxEVT_MOUSEWHEEL, {100, 100}, 120);
    EXPECT_FLOAT_EQ(view.GetCurrentCamera().Get()[14], -0.12f);
    gui_test::Pump();
}

}  // namespace
