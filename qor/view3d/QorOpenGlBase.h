// The OpenGL view control: it draws through a camera matrix and a scene
// matrix and turns mouse drags and the wheel into changes of them. It has no
// window of its own: it draws into the context current on its thread, and
// reaches its window, if any, through a qor::GlViewHost. The window adapter
// forwards the window's events to the public handlers below.
#pragma once

#include "qor/platform/WinGeometry.h"
#include "qor/view3d/GlFonts.h"
#include "qor/view3d/GlMatrix.h"
#include "qor/view3d/GlViewHost.h"

struct GLUquadric;

// What a mouse button or the wheel does. Function codes: 0 none, 1 rotate,
// 3 pan, 4 zoom; 2 has no behaviour.
struct MouseFunctions {
    int function = 0;
    CPoint last;
    CPoint start;
};

class QorOpenGlBase {
public:
    QorOpenGlBase();
    virtual ~QorOpenGlBase();
    QorOpenGlBase(const QorOpenGlBase &) = delete;
    QorOpenGlBase &operator=(const QorOpenGlBase &) = delete;

    // The window; null (the default) for none.
    void SetHost(qor::GlViewHost *host) { this->host = host; }
    qor::GlViewHost *GetHost() const { return host; }

    virtual void HandleButtonDown(unsigned int flags, CPoint point, MouseFunctions &button);
    virtual void HandleButtonUp(unsigned int flags, CPoint point, MouseFunctions &button);
    // Makes the context (through the host, when there is one) and sets the
    // fixed state: culling, lights, colour material, depth test.
    virtual void InitOpenGL();
    // What a paint draws between the matrices and the buffer swap.
    virtual void RenderScene();

    // A first context as the window is attached (the host's, when there is one).
    void PreSubclassWindow() { MakeWindowContext(); }
    // The pixel format lives in the host's window; 1 when there is one to use.
    int SetWindowPixelFormat(HDC__ *dc);
    // Nonzero when the context exists and is current.
    int CreateViewGLContext(HDC__ *dc);
    void DrawFocusRect();

    const CCamera &GetCurrentCamera() const { return camera; }
    const CScene &GetCurrentScene() const { return scene; }
    float GetAspect() const { return aspect; }

    void OnPaint();
    void OnSize(unsigned int type, int cx, int cy);
    void OnLButtonDown(unsigned int flags, CPoint point);
    void OnLButtonUp(unsigned int flags, CPoint point);
    void OnMButtonDown(unsigned int flags, CPoint point);
    void OnMButtonUp(unsigned int flags, CPoint point);
    void OnRButtonDown(unsigned int flags, CPoint point);
    void OnRButtonUp(unsigned int flags, CPoint point);
    void OnMouseMove(unsigned int flags, CPoint point);
    void OnMouseWheel(unsigned int flags, short delta, CPoint point);
    void OnCancelMode();
    void OnCaptureChanged(CWnd *window);
    void OnSetFocus();
    void OnKillFocus();
    void OnDestroy();

    MouseFunctions leftButton;
    MouseFunctions middleButton;
    MouseFunctions rightButton;
    int wheelFunction = 0;

protected:
    void Invalidate(bool erase) const;
    // The fixed look of every paint: 35 degrees, planes 0.1 and 10, the eye
    // at (0, 1, -3) looking at the origin with z up.
    void LoadProjection() const;
    void EndDrag();
    // The window's context steps of InitOpenGL, when there is a window.
    void MakeWindowContext();
    // Line width and smoothing, and culling of the clockwise front.
    void SetLinesAndCulling() const;

    void *renderingContext = nullptr;
    int pixelFormat = 0;
    CCamera camera;
    CScene scene;
    GLUquadric *quadric = nullptr;
    float aspect = 1.0f;
    float lineWidth = 0.05f;
    int width = 0;
    int height = 0;
    MouseFunctions *current = nullptr;
    qor::GlViewHost *host = nullptr;
};
