// An LED indicator: a round lamp, on, off or blinking, in any colour, with
// an optional label beside it.
#pragma once

#include <wx/control.h>
#include <wx/timer.h>

#include "qor/controls/layout/LedState.h"

// Blinking runs on a one-shot timer set to the next change, so an LED that
// is steady costs nothing, and several LEDs blinking at the same times stay
// in step with the clock rather than drifting. The lamp fills the control's
// height; the label, if any, stands to its right.
class CQorExtLed : public wxControl {
public:
    CQorExtLed() = default;
    CQorExtLed(wxWindow *parent, wxWindowID id = wxID_ANY, const wxString &label = wxString(),
               COLORREF color = qor::LedState::kDefaultColor, const wxPoint &pos = wxDefaultPosition,
               const wxSize &size = wxDefaultSize, long style = wxBORDER_NONE,
               const wxString &name = wxASCII_STR("qorExtLed"));
    bool Create(wxWindow *parent, wxWindowID id = wxID_ANY, const wxString &label = wxString(),
                COLORREF color = qor::LedState::kDefaultColor, const wxPoint &pos = wxDefaultPosition,
                const wxSize &size = wxDefaultSize, long style = wxBORDER_NONE,
                const wxString &name = wxASCII_STR("qorExtLed"));

    void SetOn();
    void SetOff();
    void SetState(bool on) { on ? SetOn() : SetOff(); }
    void SetBlinking(unsigned onMs = qor::LedState::kDefaultBlinkMs,
                     unsigned offMs = qor::LedState::kDefaultBlinkMs);
    qor::LedMode GetMode() const { return led.GetMode(); }
    bool IsLit() const;

    void SetColor(COLORREF color);
    COLORREF GetColor() const { return led.GetColor(); }
    void SetOffColor(COLORREF color);
    void ResetOffColor();

    bool AcceptsFocus() const override { return false; }

protected:
    wxSize DoGetBestClientSize() const override;

private:
    void Changed();
    void OnPaint(wxPaintEvent &event);

    qor::LedState led;
    wxTimer timer;
};
