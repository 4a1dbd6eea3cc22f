#include "qor/controls/wx/ResizableGripWindow.h"

#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/toplevel.h>

namespace qor {
namespace {

CPoint PointerOnScreen(wxWindow *window, const wxMouseEvent &event) {
    const wxPoint p = window->ClientToScreen(event.GetPosition());
    return {p.x, p.y};
}

}  // namespace

ResizableGripWindow::ResizableGripWindow(wxTopLevelWindow *owner, CResizableGrip &grip,
                                         const CResizableMinMax &limits)
    : owner(owner), grip(grip), limits(limits) {
    const wxSize client = owner->GetClientSize();
    const CRect r = grip.GetGripRect({client.x, client.y});
    Create(owner, wxID_ANY, wxPoint(r.left, r.top), wxSize(r.Width(), r.Height()), wxBORDER_NONE);
    SetCursor(wxCursor(wxCURSOR_SIZENWSE));
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &ResizableGripWindow::OnPaint, this);
    Bind(wxEVT_LEFT_DOWN, &ResizableGripWindow::OnLeftDown, this);
    Bind(wxEVT_MOTION, &ResizableGripWindow::OnMotion, this);
    Bind(wxEVT_LEFT_UP, &ResizableGripWindow::OnLeftUp, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &ResizableGripWindow::OnCaptureLost, this);
    UpdateGrip();
}

void ResizableGripWindow::UpdateGrip() {
    const wxSize client = owner->GetClientSize();
    const CRect r = grip.GetGripRect({client.x, client.y});
    SetSize(r.left, r.top, r.Width(), r.Height(), wxSIZE_ALLOW_MINUS_ONE);
    Show(grip.IsSizeGripVisible());
    Raise();
}

void ResizableGripWindow::OnPaint(wxPaintEvent &) {
    wxPaintDC dc(this);
    dc.SetBackground(wxBrush(owner->GetBackgroundColour()));
    dc.Clear();
    // Each dot with a light one below and to its right, as if pressed in.
    const wxColour light = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNHIGHLIGHT);
    const wxColour shadow = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW);
    dc.SetPen(*wxTRANSPARENT_PEN);
    for (const CRect &mark : grip.GetGripMarks()) {
        dc.SetBrush(wxBrush(light));
        dc.DrawRectangle(mark.left + 1, mark.top + 1, mark.Width(), mark.Height());
        dc.SetBrush(wxBrush(shadow));
        dc.DrawRectangle(mark.left, mark.top, mark.Width(), mark.Height());
    }
}

void ResizableGripWindow::OnLeftDown(wxMouseEvent &event) {
    const wxSize size = owner->GetSize();
    grip.BeginDrag(PointerOnScreen(this, event), {size.x, size.y});
    if (!HasCapture()) CaptureMouse();
}

void ResizableGripWindow::OnMotion(wxMouseEvent &event) {
    if (!grip.IsDragging()) return;
    const CSize size = grip.DragTo(PointerOnScreen(this, event), limits);
    owner->SetSize(size.cx, size.cy);
}

void ResizableGripWindow::OnLeftUp(wxMouseEvent &) {
    grip.EndDrag();
    if (HasCapture()) ReleaseMouse();
}

void ResizableGripWindow::OnCaptureLost(wxMouseCaptureLostEvent &) { grip.EndDrag(); }

}  // namespace qor
