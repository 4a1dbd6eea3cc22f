// The view control in a real offscreen context: what a paint shows, what a
// pick hits, and how mouse and wheel move the matrices.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <cmath>

#include "ViewTestSupport.h"

namespace {

using view_test::Box;
using view_test::Gl;
using view_test::kSize;

// Counts what the view asks of its window.
struct RecordingHost : qor::GlViewHost {
    int invalidations = 0, captures = 0, releases = 0, swaps = 0, focusRects = 0;
    bool focus = false;
    void Invalidate(bool) override { ++invalidations; }
    void SetCapture() override { ++captures; }
    void ReleaseCapture() override { ++releases; }
    bool HasFocus() const override { return focus; }
    void SwapBuffers() override { ++swaps; }
    void DrawFocusRect() override { ++focusRects; }
};

class GlView : public ::testing::Test {
protected:
    void SetUp() override {
        Gl();
        view.SetHost(&host);
        view.InitOpenGL();
        view.OnSize(0, kSize, kSize);
    }
    void Add(const std::string &name, const std::string &vrml, int id) {
        auto model = std::make_unique<VRMLModel>(name, 0.0f, id);
        ASSERT_TRUE(model->OpenFile(dir.File(name + ".wrl", vrml), false));
        view.StoreModel(name, std::move(model));
    }
    std::vector<std::uint8_t> Paint() {
        view.OnPaint();
        return Gl().ReadPixels();
    }

    view_test::TempDir dir;
    RecordingHost host;
    QorOpenGlModel view;
};

// Opens up GetClosestHit for a table of selection buffers.
struct HitReader : QorOpenGlModel {
    using QorOpenGlModel::GetClosestHit;
};

TEST_F(GlView, PaintsTheRootAndItsMatesWithTheirEmissiveColours) {
    Add("blue", Box({-0.3f, -0.3f, -0.3f}, {0.3f, 0.3f, 0.3f}, "emissiveColor 0 0 1"), 1);
    Add("red", Box({0.5f, -0.1f, -0.1f}, {0.7f, 0.1f, 0.1f}, "emissiveColor 1 0 0"), 2);
    view.AddMate("blue", "red", 0, 0, 0, 0);
    EXPECT_EQ(view.GetModel("blue").GetMates().size(), 1u);
    view.rootModelName = "blue";
    auto pixels = Paint();
    EXPECT_EQ(host.swaps, 1);
    const view_test::Rgb centre = view_test::PixelAt(pixels, kSize, kSize / 2, kSize / 2);
    EXPECT_GT(centre.b, 200);
    EXPECT_LT(centre.r, 120);
    // World +x is screen left in the fixed look.
    int red = 0;
    for (int x = 0; x < kSize / 2 - 8; ++x) {
        const view_test::Rgb p = view_test::PixelAt(pixels, kSize, x, kSize / 2);
        red += p.r > 200 && p.b < 120;
    }
    EXPECT_GT(red, 0);

    // No root: a clear white frame. A list name of 0 draws nothing either.
    view.rootModelName = "nothing";
    EXPECT_EQ(view_test::CountNonWhite(Paint()), 0);
    EXPECT_FALSE(view.HasModel("nothing"));
}

TEST_F(GlView, PicksTheModelUnderThePoint) {
    Add("left", Box({0.2f, -0.2f, -0.2f}, {0.6f, 0.2f, 0.2f}, "emissiveColor 0 1 0"), 7);
    Add("right", Box({-0.6f, -0.2f, -0.2f}, {-0.2f, 0.2f, 0.2f}, "emissiveColor 0 0 1"), 9);
    view.AddMate("left", "right", 0, 0, 0, 0);
    view.rootModelName = "left";
    Paint();
    EXPECT_EQ(view.ProcessSelection(kSize / 4, kSize / 2), 7);
    EXPECT_EQ(view.ProcessSelection(3 * kSize / 4, kSize / 2), 9);
    EXPECT_EQ(view.ProcessSelection(kSize / 2, 2), 0);
    // The pick leaves the matrix mode as a paint expects it.
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_MODELVIEW);
    while (glGetError() != GL_NO_ERROR) {
    }
}

TEST(ClosestHit, TheLargestThirdWordReadAsAFloatWins) {
    auto word = [](float f) { return std::bit_cast<unsigned>(f); };
    struct Case {
        const char *name;
        int hits;
        std::vector<unsigned> buffer;
        int id;
    };
    const Case cases[] = {
        {"no hits", 0, {}, 0},
        {"one record", 1, {1, 0, word(1.0f), 5}, 5},
        {"the larger value wins", 2, {1, 0, word(2.0f), 5, 1, 0, word(1.0f), 6}, 5},
        {"a later record wins a tie", 2, {1, 0, word(1.0f), 5, 1, 0, word(1.0f), 6}, 6},
        {"the last name of the winning record", 1, {3, 0, word(1.0f), 4, 0, 8}, 8},
        {"zero names never win", 2, {1, 0, word(3.0f), 0, 1, 0, word(1.0f), 0}, 0},
        {"integer order is not float order", 2, {1, 0, 0x80000001u, 5, 1, 0, 0x00000002u, 6}, 6},
    };
    HitReader reader;
    for (const Case &c : cases) {
        std::vector<unsigned> buffer = c.buffer;
        buffer.resize(64);
        EXPECT_EQ(reader.GetClosestHit(c.hits, buffer.data()), c.id) << c.name;
    }
}

TEST_F(GlView, MouseAndWheelMoveTheMatricesByFunction) {
    view.leftButton.function = 1;
    view.middleButton.function = 3;
    view.rightButton.function = 4;
    auto at = [](const qor::GlMatrix &m, int i) { return m.Get()[static_cast<std::size_t>(i)]; };

    // A diagonal drag turns nothing but repaints.
    view.OnLButtonDown(0, {10, 10});
    EXPECT_EQ(host.captures, 1);
    const int before = host.invalidations;
    view.OnMouseMove(0, {15, 15});
    EXPECT_EQ(view.GetCurrentScene(), CScene());
    EXPECT_EQ(host.invalidations, before + 1);
    // A vertical move turns about x by -dy degrees.
    view.OnMouseMove(0, {15, 45});
    EXPECT_NEAR(at(view.GetCurrentScene(), 6), std::sin(-30 * M_PI / 180), 1e-6);
    // A second button during the drag is ignored; its release ends the drag.
    view.OnRButtonDown(0, {0, 0});
    EXPECT_EQ(host.captures, 1);
    view.OnRButtonUp(0, {0, 0});
    EXPECT_EQ(host.releases, 1);
    const CScene turned = view.GetCurrentScene();
    view.OnMouseMove(0, {90, 90});
    EXPECT_EQ(view.GetCurrentScene(), turned);

    // Pan and zoom divide in float.
    view.OnMButtonDown(0, {0, 0});
    view.OnMouseMove(0, {10, 20});
    EXPECT_FLOAT_EQ(at(view.GetCurrentCamera(), 12), 0.1f);
    EXPECT_FLOAT_EQ(at(view.GetCurrentCamera(), 13), -0.2f);
    view.OnCaptureChanged(nullptr);  // losing the capture ends the drag
    EXPECT_EQ(host.releases, 2);
    view.OnRButtonDown(0, {0, 0});
    view.OnMouseMove(0, {0, 50});
    EXPECT_FLOAT_EQ(at(view.GetCurrentCamera(), 14), -0.5f);
    view.OnCancelMode();

    // A button without a function starts nothing.
    view.leftButton.function = 0;
    view.OnLButtonDown(0, {0, 0});
    EXPECT_EQ(host.captures, 3);

    // The wheel: 120 under function 4 is -0.12 in z; under 1 a turn of -12
    // degrees, and 5 turns nothing yet still repaints.
    view.SelView("none");
    QorOpenGlModel fresh;
    fresh.SetHost(&host);
    fresh.wheelFunction = 4;
    fresh.OnMouseWheel(0, 120, {0, 0});
    EXPECT_FLOAT_EQ(at(fresh.GetCurrentCamera(), 14), -0.12f);
    fresh.wheelFunction = 1;
    const int wheelBefore = host.invalidations;
    fresh.OnMouseWheel(0, 5, {0, 0});
    EXPECT_EQ(fresh.GetCurrentScene(), CScene());
    EXPECT_EQ(host.invalidations, wheelBefore + 1);
    fresh.OnMouseWheel(0, 120, {0, 0});
    EXPECT_NEAR(at(fresh.GetCurrentScene(), 6), std::sin(-12 * M_PI / 180), 1e-6);
}

TEST_F(GlView, SavedViewsFollowTheMapRules) {
    QorOglModelView a, b;
    a.camera.Offset(1, 0, 0);
    b.scene.RotateRoundAxis(0, 45, 0);
    view.AddView("home", a);
    view.AddView("home", b);  // an existing name keeps the old view
    EXPECT_EQ(view.GetViews().at("home").camera, a.camera);
    view.ModView("absent", b);
    EXPECT_EQ(view.GetViews().count("absent"), 0u);
    const int before = host.invalidations;
    view.SelView("absent");
    EXPECT_EQ(host.invalidations, before);
    view.SelView("home");
    EXPECT_EQ(host.invalidations, before + 1);
    EXPECT_EQ(view.GetCurrentCamera(), a.camera);
    view.ModView("home", b);
    view.SelView("home");
    EXPECT_EQ(view.GetCurrentScene(), b.scene);
    view.DelView("home");
    EXPECT_TRUE(view.GetViews().empty());
}

TEST_F(GlView, SizeAndFocusFollowTheWindow) {
    view.OnSize(0, 40, 0);
    EXPECT_EQ(view.GetAspect(), 40.0f);
    view.OnSize(0, kSize, kSize);
    view.OnSetFocus();
    view.OnKillFocus();
    EXPECT_EQ(host.focusRects, 2);
    host.focus = true;
    view.OnPaint();
    EXPECT_EQ(host.focusRects, 3);
}

TEST_F(GlView, FacesNamingMissingMaterialsOrVerticesAreDrawnSafely) {
    // Two triangles of one quad; the second names material 9, which does
    // not exist, and keeps the first one's red. A third names vertex 40.
    std::string bytes = qor::EncodeBinaryModel(
        {{-0.4f, 0, -0.4f}, {0.4f, 0, -0.4f}, {0.4f, 0, 0.4f}, {-0.4f, 0, 0.4f}},
        {{0, 2, 1, 0}, {0, 3, 2, 9}, {0, 40, 2, 0}}, {[] {
             Material m;
             m.emissive[1] = m.emissive[2] = 0;
             return m;
         }()});
    auto model = std::make_unique<VRMLModel>("quad", 0.0f, 1);
    ASSERT_TRUE(model->LoadBinaryFile(bytes.data(), bytes.size()));
    model->Generate();
    view.StoreModel("quad", std::move(model));
    view.rootModelName = "quad";
    glDisable(GL_CULL_FACE);
    const auto pixels = Paint();
    glEnable(GL_CULL_FACE);
    int red = 0, other = 0;
    for (std::size_t i = 0; i < pixels.size(); i += 4) {
        if (pixels[i] > 200 && pixels[i + 1] > 200 && pixels[i + 2] > 200) continue;
        (pixels[i] > 150 && pixels[i + 2] < 100 ? red : other)++;
    }
    EXPECT_GT(red, 100);
    EXPECT_EQ(other, 0);
}

TEST_F(GlView, CopiesShareOrRebuildTheirDisplayList) {
    Add("box", Box({0, 0, 0}, {1, 1, 1}, ""), 3);
    VRMLModel &box = view.GetModel("box");
    box.UseSpecularLighting(true);
    const VRMLModel copy(box);
    EXPECT_EQ(copy.GetCallList(), box.GetCallList());
    VRMLModel assigned;
    assigned = box;
    EXPECT_NE(assigned.GetCallList(), box.GetCallList());
    EXPECT_GT(assigned.GetCallList(), 0);
    EXPECT_FALSE(assigned.GetSpecularLighting());
    EXPECT_EQ(assigned.GetModelId(), 3);
    // Mates: a duplicate or the model itself is not added; the first call's
    // placement stays; DeleteMate keeps the mate; a circle is drawn once.
    VRMLModel a, b;
    a.AddMate(b, 10, 1, 2, 3);
    a.AddMate(b, 20, 4, 5, 6);
    a.AddMate(a, 0, 0, 0, 0);
    EXPECT_EQ(a.GetMates().size(), 1u);
    EXPECT_EQ(b.GetMateRotation(), 10);
    a.DeleteMate(b);
    EXPECT_EQ(a.GetMates().size(), 1u);
    b.AddMate(a, 0, 0, 0, 0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    a.ExecuteTransforms();
    glPopMatrix();
    box.Clear();
    EXPECT_EQ(box.GetCallList(), -1);
    EXPECT_TRUE(box.GetVertices().empty());
}

}  // namespace
