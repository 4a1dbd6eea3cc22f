// The matrices, the free camera and the fonts, computed and drawn in a real
// context.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <cmath>

#include "ViewTestSupport.h"

namespace {

using view_test::Gl;

float Distance(const Vector3D &a, const Vector3D &b) {
    return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z));
}
bool Same(const Vector3D &a, const Vector3D &b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

TEST(GlMatrix, TextRoundTripOffsetAndRotation) {
    Gl();
    glMatrixMode(GL_PROJECTION);
    GLint depth = 0, after = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);

    CCamera camera;
    camera.Offset(1, 0, 0);
    EXPECT_EQ(camera.Get()[12], 1.0f);  // the twelfth entry, counted from 0
    camera.RotateRoundAxis(10, 20, 30);
    camera.Offset(0.1f, -3, 1e-7f);
    std::string text;
    camera >> text;
    EXPECT_EQ(text.back(), ' ');
    EXPECT_EQ(CCamera(text), camera);
    // Short text leaves the rest of the identity.
    const CScene partial("2 0 0");
    EXPECT_EQ(partial.Get()[0], 2.0f);
    EXPECT_EQ(partial.Get()[5], 1.0f);

    // Offset works on the viewer's side, rotation on the object's.
    CScene moved;
    moved.RotateRoundAxis(0, 90, 0);
    moved.Offset(1, 0, 0);
    EXPECT_NEAR(moved.Get()[12], 1.0f, 1e-6);
    CScene turned;
    turned.Offset(1, 0, 0);
    turned.RotateRoundAxis(0, 90, 0);
    EXPECT_NEAR(turned.Get()[12], 1.0f, 1e-6);
    EXPECT_NEAR(turned.Get()[8], 1.0f, 1e-6);

    // The stack and the matrix mode are as they were.
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &after);
    EXPECT_EQ(after, depth);
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_PROJECTION);
    glMatrixMode(GL_MODELVIEW);
}

TEST(Camera, TurnsPansAndZoomsAsDescribed) {
    Gl();
    const Vector3D eye{0, 0, 5}, target{0, 0, 0}, up{0, 1, 0}, pivot{0, 0, 0};

    Camera still(eye, target, up);
    still.Rotate(0, 0, pivot);  // no turn, but the look-at comes to unit distance
    EXPECT_TRUE(Same(still.GetPosition(), eye));
    EXPECT_NEAR(Distance(still.GetPosition(), still.GetLookAt()), 1.0f, 1e-6);

    Camera kept(eye, target, up);
    kept.NewRotate(0, 0, pivot);
    EXPECT_TRUE(Same(kept.GetLookAt(), target));

    Camera turned(eye, target, up);
    turned.Rotate(static_cast<float>(M_PI / 2), 0, pivot);  // a quarter turn about the frame's up
    EXPECT_NEAR(Distance(turned.GetPosition(), pivot), 5.0f, 1e-5);
    EXPECT_NEAR(std::fabs(turned.GetPosition().x), 5.0f, 1e-5);

    const Vector3D fixed{3, 3, 3};
    Camera looking(eye, target, up);
    looking.SetConstantLookPoint(true, fixed);
    looking.Rotate(0.3f, 0.2f, pivot);
    EXPECT_TRUE(Same(looking.GetLookAt(), fixed));
    Camera zoomed(eye, target, up);
    zoomed.SetConstantLookPoint(true, fixed);
    zoomed.Zoom(5, pivot);  // moves nothing and ignores the constant look
    EXPECT_TRUE(Same(zoomed.GetPosition(), eye));
    EXPECT_TRUE(Same(zoomed.GetLookAt(), target));

    Camera panned(eye, target, up);
    panned.Pan(5, 5, pivot);
    EXPECT_TRUE(Same(panned.GetPosition(), eye));

    // Copies carry the three vectors only.
    Camera copy(looking);
    EXPECT_TRUE(Same(copy.GetLookAt(), fixed));
    copy.Rotate(0.1f, 0, pivot);
    EXPECT_FALSE(Same(copy.GetLookAt(), fixed));

    struct Perspective {
        int width, height;
        float aspect;
    };
    for (const Perspective p : {Perspective{800, 600, 800.0f / 600}, {600, 800, 1}, {100, 100, 1}}) {
        Camera c;
        c.SetPerspective(p.width, p.height);
        EXPECT_FLOAT_EQ(c.GetAspect(), p.aspect);
        EXPECT_FLOAT_EQ(c.GetFieldOfView(), 45.0f);
        GLint mode = 0;
        glGetIntegerv(GL_MATRIX_MODE, &mode);
        EXPECT_EQ(mode, GL_PROJECTION);
    }
    glMatrixMode(GL_MODELVIEW);
}

TEST(GlFonts, DrawTextThroughOneListPerCode) {
    auto &gl = Gl();
    auto *dc = reinterpret_cast<HDC__ *>(&gl);
    const CGLBitmapFont none(nullptr, "DejaVu Sans", 12, 400);
    EXPECT_EQ(none.GetBase(), 0u);
    const CGLOutlineFont negative(dc, "DejaVu Sans", -1, 0, true);
    EXPECT_EQ(negative.GetBase(), 0u);

    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glColor3f(0, 0, 0);
    // A face name longer than a log font holds still finds a font.
    const CGLBitmapFont bitmap(dc, std::string(40, 'Q') + "DejaVu Sans", -16, 700);
    ASSERT_GT(bitmap.GetBase(), 0u);
    bitmap.Draw2dStringAt(2, 20, view_test::kSize, view_test::kSize, "");
    EXPECT_EQ(view_test::CountNonWhite(gl.ReadPixels()), 0);
    bitmap.Draw2dStringAt(2, 20, view_test::kSize, view_test::kSize, "Qor");
    EXPECT_GT(view_test::CountNonWhite(gl.ReadPixels()), 20);

    glClear(GL_COLOR_BUFFER_BIT);
    const CGLOutlineFont outline(dc, "DejaVu Sans", 0, 0.1f, true);
    ASSERT_GT(outline.GetBase(), 0u);
    EXPECT_GT(outline.GetMetrics()['W'].cellIncX, 0.5f);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(-0.9f, -0.3f, 0);
    glScalef(0.6f, 0.6f, 0.6f);
    outline.DrawString("W");
    EXPECT_GT(view_test::CountNonWhite(gl.ReadPixels()), 50);
    glLoadIdentity();
    glEnable(GL_LIGHTING);
    glEnable(GL_DEPTH_TEST);
}

}  // namespace
