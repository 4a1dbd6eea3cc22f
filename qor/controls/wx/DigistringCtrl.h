// The segment display in a window: a painted control over CDigistring,
// double-buffered, that repaints when its text, colours or style change.
#pragma once

#include <wx/window.h>

#include <memory>

#include "qor/controls/digi/CDigistring.h"

class wxDC;

namespace qor {

class DigistringCtrl : public wxWindow {
public:
    DigistringCtrl(wxWindow *parent, wxWindowID id = wxID_ANY, const wxPoint &pos = wxDefaultPosition,
                   const wxSize &size = wxDefaultSize);
    ~DigistringCtrl() override;

    CDigistring &Digits();

    // Draws a picture of the display into any device context.
    static void Draw(wxDC &dc, const qor::DigiPicture &picture);

private:
    class Bridge;
    void OnPaint(wxPaintEvent &event);

    std::unique_ptr<Bridge> digits_;
};

}  // namespace qor
