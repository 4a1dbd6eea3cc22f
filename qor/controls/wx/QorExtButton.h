// A push or toggle button in the suite's flat look, in the colours it is
// given.
#pragma once

#include <wx/control.h>
#include <wx/tglbtn.h>  // wxEVT_TOGGLEBUTTON, which a checkable button sends

#include "qor/controls/layout/ButtonState.h"

// Clicks as any push button does (see qor::ButtonState): a press and a
// release over it, or the space key, send wxEVT_BUTTON; a checkable one
// flips its check and sends wxEVT_TOGGLEBUTTON with the new state as the
// event's integer. A flat button (the default) shows its border only while
// the pointer is over it, pressed or checked. Face and text take the
// window's background and foreground colours, which SetFaceColor and
// SetTextColor set from COLORREF values.
class QorExtButton : public wxControl {
public:
    QorExtButton() = default;
    QorExtButton(wxWindow *parent, wxWindowID id, const wxString &label,
                 const wxPoint &pos = wxDefaultPosition, const wxSize &size = wxDefaultSize,
                 long style = wxBORDER_NONE, const wxValidator &validator = wxDefaultValidator,
                 const wxString &name = wxASCII_STR("qorExtButton"));
    bool Create(wxWindow *parent, wxWindowID id, const wxString &label,
                const wxPoint &pos = wxDefaultPosition, const wxSize &size = wxDefaultSize,
                long style = wxBORDER_NONE, const wxValidator &validator = wxDefaultValidator,
                const wxString &name = wxASCII_STR("qorExtButton"));

    void SetFlat(bool flat);
    bool IsFlat() const { return flat; }
    void SetCheckable(bool checkable);
    bool IsCheckable() const { return state.IsCheckable(); }
    void SetChecked(bool checked);
    bool IsChecked() const { return state.IsChecked(); }
    void SetFaceColor(COLORREF color);
    void SetTextColor(COLORREF color);

    const qor::ButtonState &GetButtonState() const { return state; }

    bool Enable(bool enable = true) override;
    bool AcceptsFocus() const override { return IsEnabled(); }

protected:
    wxSize DoGetBestClientSize() const override;

private:
    void OnPaint(wxPaintEvent &event);
    void OnMouse(wxMouseEvent &event);
    void OnCaptureLost(wxMouseCaptureLostEvent &event);
    void OnKey(wxKeyEvent &event);
    void Clicked();

    qor::ButtonState state;
    bool flat = true;
};
