// The OpenGL view in a wxWidgets window: a wxGLCanvas that hosts a
// QorOpenGlModel, forwards the window's events to its handlers, and gives it
// the context, capture, focus and repaints it asks for.
#pragma once

#include <wx/glcanvas.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "qor/view3d/QorOpenGlModel.h"

namespace qor::wx {

class ModelCanvas : public wxGLCanvas {
public:
    // Owns view (a plain QorOpenGlModel when none is given).
    explicit ModelCanvas(wxWindow *parent, std::unique_ptr<QorOpenGlModel> view = nullptr,
                         wxWindowID id = wxID_ANY);
    ~ModelCanvas() override;

    QorOpenGlModel &View() { return *view_; }

    // Makes the context current and runs the view's InitOpenGL and OnSize.
    // The window must be on screen (after its frame is shown and the event
    // loop has run); false until it is. Models can be added afterwards.
    bool InitView();
    bool IsReady() const { return ready_; }
    // Makes the view's context current, for calls that need it (adding
    // models, matrix moves); false before InitView.
    bool MakeCurrent();

    // Called with the picked model's id (0 for none) when the left button
    // is released within a few pixels of where it went down.
    void SetPickHandler(std::function<void(int id)> handler) { pickHandler_ = std::move(handler); }

    // Paints now and reads back what the window shows: RGBA, top row first.
    std::vector<std::uint8_t> Snapshot(int &width, int &height);

private:
    // What the view asks of its window, answered by this canvas. A member,
    // not a base, as the canvas's own SwapBuffers has another signature.
    class Host : public qor::GlViewHost {
    public:
        explicit Host(ModelCanvas &canvas) : canvas_(canvas) {}
        void Invalidate(bool erase) override;
        void SetCapture() override;
        void ReleaseCapture() override;
        bool HasFocus() const override;
        void SwapBuffers() override;
        bool CreateContext() override;
        void DestroyContext() override;

    private:
        ModelCanvas &canvas_;
    };

    void OnPaintEvent(wxPaintEvent &event);
    void OnSizeEvent(wxSizeEvent &event);
    void OnMouseEvent(wxMouseEvent &event);
    void OnWheelEvent(wxMouseEvent &event);
    void OnCaptureLost(wxMouseCaptureLostEvent &event);
    void OnFocusEvent(wxFocusEvent &event);
    wxSize PixelSize() const;

    Host host_{*this};
    std::unique_ptr<QorOpenGlModel> view_;
    std::unique_ptr<wxGLContext> context_;
    std::function<void(int)> pickHandler_;
    wxPoint pressedAt_;
    bool ready_ = false;
    bool holdSwap_ = false;  // while Snapshot reads the frame back
};

}  // namespace qor::wx
