#include "qor/view3d/QorOpenGlBase.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cstdlib>

namespace {

// How a drag of (dx, dy) pixels moves the view, by function code.
struct DragRule {
    int function;
    void (*apply)(CCamera &camera, CScene &scene, int dx, int dy);
};
constexpr DragRule kDragRules[] = {
    {1, [](CCamera &, CScene &scene, int dx, int dy) {
         // One axis per event, one degree a pixel; a diagonal turns nothing.
         if (std::abs(dy) > std::abs(dx)) scene.RotateRoundAxis(static_cast<float>(-dy), 0, 0);
         else if (std::abs(dx) > std::abs(dy)) scene.RotateRoundAxis(0, static_cast<float>(dx), 0);
     }},
    {3, [](CCamera &camera, CScene &, int dx, int dy) { camera.Offset(dx / 100.0f, -dy / 100.0f, 0); }},
    {4, [](CCamera &camera, CScene &, int, int dy) { camera.Offset(0, 0, -dy / 100.0f); }},
};

// How a wheel turn of delta moves the view, by function code.
struct WheelRule {
    int function;
    void (*apply)(CCamera &camera, CScene &scene, short delta);
};
constexpr WheelRule kWheelRules[] = {
    // Integer division: 120 turns by -12 degrees, 5 by nothing.
    {1, [](CCamera &, CScene &scene, short w) { scene.RotateRoundAxis(static_cast<float>(-(w / 10)), 0, 0); }},
    {3, [](CCamera &camera, CScene &, short w) { camera.Offset(w / 100.0f, -w / 100.0f, 0); }},
    {4, [](CCamera &camera, CScene &, short w) { camera.Offset(0, 0, -w / 1000.0f); }},
};

template <class Rule, std::size_t N>
const Rule *FindRule(const Rule (&rules)[N], int function) {
    for (const Rule &rule : rules)
        if (rule.function == function) return &rule;
    return nullptr;
}

void SetLight(GLenum light, const GLfloat *ambient, const GLfloat *diffuse, const GLfloat *position) {
    glLightfv(light, GL_AMBIENT, ambient);
    glLightfv(light, GL_DIFFUSE, diffuse);
    glLightfv(light, GL_POSITION, position);
    glEnable(light);
}

}  // namespace

QorOpenGlBase::QorOpenGlBase() : quadric(gluNewQuadric()) {}

QorOpenGlBase::~QorOpenGlBase() {
    if (quadric) gluDeleteQuadric(quadric);
}

void QorOpenGlBase::Invalidate(bool erase) const {
    if (host) host->Invalidate(erase);
}

int QorOpenGlBase::SetWindowPixelFormat(HDC__ *) {
    pixelFormat = 1;
    return 1;
}

int QorOpenGlBase::CreateViewGLContext(HDC__ *) {
    const bool made = !host || host->CreateContext();
    renderingContext = made ? this : nullptr;
    return made ? 1 : 0;
}

void QorOpenGlBase::MakeWindowContext() {
    if (!host) return;
    SetWindowPixelFormat(nullptr);
    CreateViewGLContext(nullptr);
}

void QorOpenGlBase::SetLinesAndCulling() const {
    glLineWidth(lineWidth);
    glEnable(GL_LINE_SMOOTH);
    // Clockwise is front and the front is culled: the view shows the side
    // wound counter-clockwise on screen.
    glFrontFace(GL_CW);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_FRONT);
}

void QorOpenGlBase::InitOpenGL() {
    MakeWindowContext();
    SetLinesAndCulling();
    glEnable(GL_LIGHTING);
    const GLfloat ambient[] = {0.05f, 0.05f, 0.05f, 1}, diffuse[] = {0.1f, 0.1f, 0.1f, 1};
    const GLfloat left[] = {-5, 5, 5, 1}, right[] = {5, 5, 5, 1};
    SetLight(GL_LIGHT0, ambient, diffuse, left);
    SetLight(GL_LIGHT1, ambient, diffuse, right);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
    glDepthFunc(GL_LESS);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_NORMALIZE);
}

void QorOpenGlBase::RenderScene() {}

void QorOpenGlBase::LoadProjection() const { gluPerspective(35.0, aspect, 0.1, 10.0); }

void QorOpenGlBase::OnPaint() {
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    LoadProjection();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    // The camera acts in view space, ahead of the fixed look-at; the scene
    // in world space, behind it.
    camera.Apply();
    gluLookAt(0, 1, -3, 0, 0, 0, 0, 0, 1);
    scene.Apply();
    RenderScene();
    if (host) {
        host->SwapBuffers();
        if (host->HasFocus()) DrawFocusRect();
    }
}

void QorOpenGlBase::OnSize(unsigned int, int cx, int cy) {
    width = cx;
    height = cy;
    aspect = cy == 0 ? static_cast<float>(cx) : static_cast<float>(cx) / static_cast<float>(cy);
    glViewport(0, 0, cx, cy);
}

void QorOpenGlBase::HandleButtonDown(unsigned int, CPoint point, MouseFunctions &button) {
    if (current || button.function == 0) return;
    button.last = point;
    button.start = point;
    current = &button;
    if (host) host->SetCapture();
}

void QorOpenGlBase::EndDrag() {
    if (!current) return;
    current = nullptr;
    if (host) host->ReleaseCapture();
}

void QorOpenGlBase::HandleButtonUp(unsigned int, CPoint, MouseFunctions &) { EndDrag(); }

void QorOpenGlBase::OnLButtonDown(unsigned int flags, CPoint point) { HandleButtonDown(flags, point, leftButton); }
void QorOpenGlBase::OnLButtonUp(unsigned int flags, CPoint point) { HandleButtonUp(flags, point, leftButton); }
void QorOpenGlBase::OnMButtonDown(unsigned int flags, CPoint point) { HandleButtonDown(flags, point, middleButton); }
void QorOpenGlBase::OnMButtonUp(unsigned int flags, CPoint point) { HandleButtonUp(flags, point, middleButton); }
void QorOpenGlBase::OnRButtonDown(unsigned int flags, CPoint point) { HandleButtonDown(flags, point, rightButton); }
void QorOpenGlBase::OnRButtonUp(unsigned int flags, CPoint point) { HandleButtonUp(flags, point, rightButton); }

void QorOpenGlBase::OnMouseMove(unsigned int, CPoint point) {
    if (!current) return;
    const int dx = point.x - current->last.x;
    const int dy = point.y - current->last.y;
    if (const DragRule *rule = FindRule(kDragRules, current->function)) rule->apply(camera, scene, dx, dy);
    current->last = point;
    Invalidate(true);
}

void QorOpenGlBase::OnMouseWheel(unsigned int, short delta, CPoint) {
    if (const WheelRule *rule = FindRule(kWheelRules, wheelFunction)) rule->apply(camera, scene, delta);
    Invalidate(true);
}

void QorOpenGlBase::OnCancelMode() { EndDrag(); }
void QorOpenGlBase::OnCaptureChanged(CWnd *) { EndDrag(); }
void QorOpenGlBase::OnSetFocus() { DrawFocusRect(); }
void QorOpenGlBase::OnKillFocus() { DrawFocusRect(); }

void QorOpenGlBase::DrawFocusRect() {
    if (host) host->DrawFocusRect();
}

void QorOpenGlBase::OnDestroy() {
    if (host && renderingContext) host->DestroyContext();
    renderingContext = nullptr;
}
