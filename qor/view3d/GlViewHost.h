// What the OpenGL view needs of the window it lives in. The view classes are
// toolkit-free: a window adapter (the wxGLCanvas one of Qor::gui, or a test)
// implements this and passes itself to QorOpenGlBase::SetHost. Every member
// has a harmless default, so a view without a window draws into whatever
// context is current.
#pragma once

namespace qor {

class GlViewHost {
public:
    virtual ~GlViewHost() = default;

    // Ask for a repaint.
    virtual void Invalidate(bool erase) {}
    // Route every mouse event to this window until released.
    virtual void SetCapture() {}
    virtual void ReleaseCapture() {}
    virtual bool HasFocus() const { return false; }
    // Show what was drawn.
    virtual void SwapBuffers() {}
    // Make the window's OpenGL context, if it has none yet, and make it
    // current; false when that fails.
    virtual bool CreateContext() { return true; }
    // Release the context.
    virtual void DestroyContext() {}
    // Toggle the focus rectangle around the window (an exclusive-or: two
    // calls cancel out).
    virtual void DrawFocusRect() {}
};

}  // namespace qor
