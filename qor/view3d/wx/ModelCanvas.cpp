#include "qor/view3d/wx/ModelCanvas.h"

#include <wx/dcclient.h>

#include <GL/gl.h>

#include <cstdlib>
#include <cstring>

namespace qor::wx {
namespace {

// A pick is a left click that moved less than this many pixels.
constexpr int kClickSlop = 3;

wxGLAttributes CanvasAttributes() {
    wxGLAttributes attributes;
    attributes.PlatformDefaults().RGBA().DoubleBuffer().Depth(24).EndList();
    return attributes;
}

CPoint ToPoint(const wxPoint &p) { return {p.x, p.y}; }

// The framework's key-state flags of a mouse event.
unsigned Flags(const wxMouseEvent &e) {
    struct Bit {
        bool on;
        unsigned flag;
    };
    const Bit bits[] = {{e.LeftIsDown(), 0x0001}, {e.RightIsDown(), 0x0002}, {e.ShiftDown(), 0x0004},
                        {e.ControlDown(), 0x0008}, {e.MiddleIsDown(), 0x0010}};
    unsigned flags = 0;
    for (const Bit &b : bits) flags |= b.on ? b.flag : 0;
    return flags;
}

}  // namespace

ModelCanvas::ModelCanvas(wxWindow *parent, std::unique_ptr<QorOpenGlModel> view, wxWindowID id)
    : wxGLCanvas(parent, CanvasAttributes(), id, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS),
      view_(view ? std::move(view) : std::make_unique<QorOpenGlModel>()) {
    view_->SetHost(&host_);
    Bind(wxEVT_PAINT, &ModelCanvas::OnPaintEvent, this);
    Bind(wxEVT_SIZE, &ModelCanvas::OnSizeEvent, this);
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent &) {});  // the paint covers it all
    for (auto type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_MIDDLE_DOWN, wxEVT_MIDDLE_UP, wxEVT_RIGHT_DOWN,
                      wxEVT_RIGHT_UP, wxEVT_MOTION})
        Bind(type, &ModelCanvas::OnMouseEvent, this);
    Bind(wxEVT_MOUSEWHEEL, &ModelCanvas::OnWheelEvent, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &ModelCanvas::OnCaptureLost, this);
    Bind(wxEVT_SET_FOCUS, &ModelCanvas::OnFocusEvent, this);
    Bind(wxEVT_KILL_FOCUS, &ModelCanvas::OnFocusEvent, this);
}

ModelCanvas::~ModelCanvas() {
    // The models' display lists belong to this context: free them while it is current.
    if (MakeCurrent()) view_->DeleteModels();
    view_->OnDestroy();
    view_->SetHost(nullptr);
}

wxSize ModelCanvas::PixelSize() const { return GetClientSize() * GetContentScaleFactor(); }

bool ModelCanvas::InitView() {
    if (ready_) return MakeCurrent();
    if (!IsShownOnScreen()) return false;
    ready_ = true;
    view_->InitOpenGL();
    if (!context_) {
        ready_ = false;
        return false;
    }
    const wxSize size = PixelSize();
    view_->OnSize(0, size.x, size.y);
    return true;
}

bool ModelCanvas::MakeCurrent() { return context_ && SetCurrent(*context_); }

bool ModelCanvas::Host::CreateContext() {
    auto &context = canvas_.context_;
    if (!context) {
        context = std::make_unique<wxGLContext>(&canvas_);
        if (!context->IsOK()) {
            context.reset();
            return false;
        }
    }
    return canvas_.SetCurrent(*context);
}

void ModelCanvas::Host::DestroyContext() { canvas_.context_.reset(); }

void ModelCanvas::Host::Invalidate(bool erase) { canvas_.Refresh(erase); }

void ModelCanvas::Host::SetCapture() {
    if (!canvas_.HasCapture()) canvas_.CaptureMouse();
}

void ModelCanvas::Host::ReleaseCapture() {
    if (canvas_.HasCapture()) canvas_.ReleaseMouse();
}

bool ModelCanvas::Host::HasFocus() const { return canvas_.HasFocus(); }

void ModelCanvas::Host::SwapBuffers() {
    if (!canvas_.holdSwap_) canvas_.SwapBuffers();
}

void ModelCanvas::OnPaintEvent(wxPaintEvent &) {
    wxPaintDC dc(this);
    if (ready_ && MakeCurrent()) view_->OnPaint();
}

void ModelCanvas::OnSizeEvent(wxSizeEvent &event) {
    if (ready_ && MakeCurrent()) {
        const wxSize size = PixelSize();
        view_->OnSize(0, size.x, size.y);
        Refresh(false);
    }
    event.Skip();
}

void ModelCanvas::OnMouseEvent(wxMouseEvent &event) {
    event.Skip();
    if (!ready_ || !MakeCurrent()) return;
    const CPoint point = ToPoint(event.GetPosition() * GetContentScaleFactor());
    const unsigned flags = Flags(event);
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_LEFT_DOWN) {
        SetFocus();
        pressedAt_ = event.GetPosition();
        view_->OnLButtonDown(flags, point);
    } else if (type == wxEVT_LEFT_UP) {
        view_->OnLButtonUp(flags, point);
        const wxPoint moved = event.GetPosition() - pressedAt_;
        if (pickHandler_ && std::abs(moved.x) < kClickSlop && std::abs(moved.y) < kClickSlop)
            pickHandler_(view_->ProcessSelection(static_cast<unsigned short>(point.x),
                                                 static_cast<unsigned short>(point.y)));
    } else if (type == wxEVT_MIDDLE_DOWN) {
        view_->OnMButtonDown(flags, point);
    } else if (type == wxEVT_MIDDLE_UP) {
        view_->OnMButtonUp(flags, point);
    } else if (type == wxEVT_RIGHT_DOWN) {
        view_->OnRButtonDown(flags, point);
    } else if (type == wxEVT_RIGHT_UP) {
        view_->OnRButtonUp(flags, point);
    } else if (type == wxEVT_MOTION) {
        view_->OnMouseMove(flags, point);
    }
}

void ModelCanvas::OnWheelEvent(wxMouseEvent &event) {
    if (!ready_ || !MakeCurrent()) return;
    view_->OnMouseWheel(Flags(event), static_cast<short>(event.GetWheelRotation()), ToPoint(event.GetPosition()));
}

void ModelCanvas::OnCaptureLost(wxMouseCaptureLostEvent &) { view_->OnCaptureChanged(nullptr); }

void ModelCanvas::OnFocusEvent(wxFocusEvent &event) {
    event.Skip();
    if (!ready_ || !MakeCurrent()) return;
    if (event.GetEventType() == wxEVT_SET_FOCUS) view_->OnSetFocus();
    else view_->OnKillFocus();
}

std::vector<std::uint8_t> ModelCanvas::Snapshot(int &width, int &height) {
    const wxSize size = PixelSize();
    width = size.x;
    height = size.y;
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * height * 4);
    if (!ready_ || !MakeCurrent() || pixels.empty()) return pixels;
    // The frame is read from the back buffer just before it is shown: the
    // front buffer of a window cannot be read back everywhere.
    holdSwap_ = true;
    view_->OnPaint();
    holdSwap_ = false;
    glFinish();
    glReadBuffer(GL_BACK);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    std::vector<std::uint8_t> rows(pixels.size());
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rows.data());
    SwapBuffers();
    const std::size_t row = static_cast<std::size_t>(width) * 4;
    for (int y = 0; y < height; ++y)
        std::memcpy(&pixels[static_cast<std::size_t>(y) * row], &rows[static_cast<std::size_t>(height - 1 - y) * row], row);
    return pixels;
}

}  // namespace qor::wx
