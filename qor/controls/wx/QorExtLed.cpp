#include "qor/controls/wx/QorExtLed.h"

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/settings.h>

#include <algorithm>
#include <memory>

#include "qor/controls/layout/ColorMix.h"
#include "qor/platform/Time.h"

namespace {

constexpr int kDefaultDiameter = 14;
constexpr int kLabelGap = 5;


}  // namespace

CQorExtLed::CQorExtLed(wxWindow *parent, wxWindowID id, const wxString &label, COLORREF color,
                       const wxPoint &pos, const wxSize &size, long style, const wxString &name) {
    Create(parent, id, label, color, pos, size, style, name);
}

bool CQorExtLed::Create(wxWindow *parent, wxWindowID id, const wxString &label, COLORREF color,
                        const wxPoint &pos, const wxSize &size, long style, const wxString &name) {
    if (!wxControl::Create(parent, id, pos, size, style, wxDefaultValidator, name)) return false;
    SetLabel(label);
    led.SetColor(color);
    SetInitialSize(size);
    timer.SetOwner(this);
    Bind(wxEVT_TIMER, [this](wxTimerEvent &) { Changed(); });
    Bind(wxEVT_PAINT, &CQorExtLed::OnPaint, this);
    return true;
}

void CQorExtLed::SetOn() {
    led.SetOn();
    Changed();
}

void CQorExtLed::SetOff() {
    led.SetOff();
    Changed();
}

void CQorExtLed::SetBlinking(unsigned onMs, unsigned offMs) {
    led.SetBlinking(GetTickCount64(), onMs, offMs);
    Changed();
}

bool CQorExtLed::IsLit() const { return led.IsLit(GetTickCount64()); }

void CQorExtLed::SetColor(COLORREF color) {
    led.SetColor(color);
    Changed();
}

void CQorExtLed::SetOffColor(COLORREF color) {
    led.SetOffColor(color);
    Changed();
}

void CQorExtLed::ResetOffColor() {
    led.ResetOffColor();
    Changed();
}

void CQorExtLed::Changed() {
    Refresh();
    const ULONGLONG now = GetTickCount64();
    const ULONGLONG next = led.NextChange(now);
    if (next)
        timer.StartOnce(static_cast<int>(std::min<ULONGLONG>(next - now, 1u << 30)));
    else
        timer.Stop();
}

wxSize CQorExtLed::DoGetBestClientSize() const {
    const wxString label = GetLabel();
    if (label.empty()) return wxSize(kDefaultDiameter, kDefaultDiameter);
    const wxSize text = GetTextExtent(label);
    return wxSize(kDefaultDiameter + kLabelGap + text.x, std::max(kDefaultDiameter, text.y));
}

void CQorExtLed::OnPaint(wxPaintEvent &) {
    // Drawn over whatever the parent shows, themed page or plain panel.
    wxPaintDC dc(this);
    const wxSize client = GetClientSize();
    const int diameter = std::max(0, std::min(client.y, GetLabel().empty() ? client.x : client.y) - 1);
    const COLORREF color = led.ColorAt(GetTickCount64());

    std::unique_ptr<wxGraphicsContext> gc(wxGraphicsContext::Create(dc));
    if (gc && diameter > 2) {
        const double top = (client.y - diameter) / 2.0;
        // A lamp lit from the top left: a bright spot fading into its colour,
        // inside a darker rim.
        gc->SetPen(wxPen(wxColour(qor::Darken(color, 0.45))));
        const double spotX = diameter * 0.35, spotY = top + diameter * 0.35;
        gc->SetBrush(gc->CreateRadialGradientBrush(spotX, spotY, diameter / 2.0, top + diameter / 2.0,
                                                   diameter * 0.6, wxColour(qor::Lighten(color, 0.6)),
                                                   wxColour(color)));
        gc->DrawEllipse(0.5, top + 0.5, diameter, diameter);
    }
    if (!GetLabel().empty()) {
        dc.SetFont(GetFont());
        dc.SetTextForeground(IsEnabled() ? GetForegroundColour()
                                         : wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
        const wxSize text = dc.GetTextExtent(GetLabel());
        dc.DrawText(GetLabel(), diameter + kLabelGap, (client.y - text.y) / 2);
    }
}
