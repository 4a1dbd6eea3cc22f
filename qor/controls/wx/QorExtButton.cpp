#include "qor/controls/wx/QorExtButton.h"

#include <wx/dcclient.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include "qor/controls/layout/FlatLook.h"

namespace {

constexpr int kPaddingX = 10;
constexpr int kPaddingY = 5;


}  // namespace

QorExtButton::QorExtButton(wxWindow *parent, wxWindowID id, const wxString &label,
                           const wxPoint &pos, const wxSize &size, long style,
                           const wxValidator &validator, const wxString &name) {
    Create(parent, id, label, pos, size, style, validator, name);
}

bool QorExtButton::Create(wxWindow *parent, wxWindowID id, const wxString &label,
                          const wxPoint &pos, const wxSize &size, long style,
                          const wxValidator &validator, const wxString &name) {
    if (!wxControl::Create(parent, id, pos, size, style, validator, name)) return false;
    SetLabel(label);
    SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    SetInitialSize(size);
    Bind(wxEVT_PAINT, &QorExtButton::OnPaint, this);
    for (auto type : {wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW, wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK,
                      wxEVT_LEFT_UP, wxEVT_MOTION})
        Bind(type, &QorExtButton::OnMouse, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &QorExtButton::OnCaptureLost, this);
    Bind(wxEVT_KEY_DOWN, &QorExtButton::OnKey, this);
    Bind(wxEVT_KEY_UP, &QorExtButton::OnKey, this);
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent &event) { Refresh(), event.Skip(); });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent &event) { Refresh(), event.Skip(); });
    return true;
}

void QorExtButton::SetFlat(bool value) {
    flat = value;
    Refresh();
}

void QorExtButton::SetCheckable(bool checkable) {
    state.SetCheckable(checkable);
    Refresh();
}

void QorExtButton::SetChecked(bool checked) {
    state.SetChecked(checked);
    Refresh();
}

void QorExtButton::SetFaceColor(COLORREF color) {
    SetBackgroundColour(wxColour(color));
    Refresh();
}

void QorExtButton::SetTextColor(COLORREF color) {
    SetForegroundColour(wxColour(color));
    Refresh();
}

bool QorExtButton::Enable(bool enable) {
    state.SetEnabled(enable);
    if (!enable && HasCapture()) ReleaseMouse();
    Refresh();
    return wxControl::Enable(enable);
}

wxSize QorExtButton::DoGetBestClientSize() const {
    const wxSize text = GetTextExtent(GetLabelText());
    return wxSize(text.x + 2 * kPaddingX, text.y + 2 * kPaddingY);
}

void QorExtButton::OnMouse(wxMouseEvent &event) {
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_ENTER_WINDOW) {
        state.MouseEnter();
    } else if (type == wxEVT_LEAVE_WINDOW) {
        state.MouseLeave();
    } else if (type == wxEVT_MOTION) {
        // While the button holds the pointer, leaving is seen by position.
        if (HasCapture()) GetClientRect().Contains(event.GetPosition()) ? state.MouseEnter() : state.MouseLeave();
    } else if (type == wxEVT_LEFT_DOWN || type == wxEVT_LEFT_DCLICK) {
        if (IsEnabled()) SetFocus();
        state.MouseDown();
        if (!HasCapture()) CaptureMouse();
    } else if (type == wxEVT_LEFT_UP) {
        if (HasCapture()) ReleaseMouse();
        if (!GetClientRect().Contains(event.GetPosition())) state.MouseLeave();
        if (state.MouseUp()) Clicked();
    }
    Refresh();
    event.Skip();
}

void QorExtButton::OnCaptureLost(wxMouseCaptureLostEvent &) {
    state.CancelMouse();
    Refresh();
}

void QorExtButton::OnKey(wxKeyEvent &event) {
    if (event.GetKeyCode() != WXK_SPACE) {
        event.Skip();
        return;
    }
    if (event.GetEventType() == wxEVT_KEY_DOWN)
        state.KeyDown();
    else if (state.KeyUp())
        Clicked();
    Refresh();
}

void QorExtButton::Clicked() {
    wxCommandEvent event(state.IsCheckable() ? wxEVT_TOGGLEBUTTON : wxEVT_BUTTON, GetId());
    event.SetEventObject(this);
    event.SetInt(state.IsChecked());
    ProcessWindowEvent(event);
}

void QorExtButton::OnPaint(wxPaintEvent &) {
    // Drawn over whatever the parent shows, so a flat button at rest is only
    // its label.
    wxPaintDC dc(this);
    const qor::FlatFace face = state.Face();
    const qor::FlatColors colors =
        qor::FlatColorsFor(face, GetBackgroundColour().GetRGB(), GetForegroundColour().GetRGB());
    const wxRect all = GetClientRect();
    const bool bordered = !flat || face == qor::FlatFace::Hot || face == qor::FlatFace::Pressed ||
                          face == qor::FlatFace::Checked;
    if (bordered) {
        dc.SetBrush(wxBrush(wxColour(colors.face)));
        dc.SetPen(wxPen(wxColour(colors.border)));
        dc.DrawRectangle(all);
    }

    // A pressed face shifts its label as if pushed in.
    wxRect label = all.Deflate(kPaddingX, kPaddingY);
    if (face == qor::FlatFace::Pressed) label.Offset(1, 1);
    dc.SetFont(GetFont());
    dc.SetTextForeground(wxColour(colors.text));
    dc.DrawLabel(GetLabelText(), label, wxALIGN_CENTRE);
    if (HasFocus()) wxRendererNative::Get().DrawFocusRect(this, dc, all.Deflate(3, 3));
}
