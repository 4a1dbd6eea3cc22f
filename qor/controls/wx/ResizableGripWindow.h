// The size grip as a window: drawn in the corner of a top-level window, it
// resizes that window when dragged.
#pragma once

#include <wx/window.h>

#include "qor/controls/layout/ResizableGrip.h"
#include "qor/controls/layout/ResizableMinMax.h"

class wxTopLevelWindow;

namespace qor {

// A child of `owner` sized and placed by `grip` (keep it anchored to the
// owner's bottom-right corner), shown while the grip is visible. A drag
// sizes the owner within `limits`. `grip` and `limits` belong to the owner
// and outlive this window.
class ResizableGripWindow : public wxWindow {
public:
    ResizableGripWindow(wxTopLevelWindow *owner, CResizableGrip &grip, const CResizableMinMax &limits);

    // Shows or hides the window as the grip says, in its corner.
    void UpdateGrip();

    bool AcceptsFocus() const override { return false; }
    bool AcceptsFocusFromKeyboard() const override { return false; }

private:
    void OnPaint(wxPaintEvent &event);
    void OnLeftDown(wxMouseEvent &event);
    void OnMotion(wxMouseEvent &event);
    void OnLeftUp(wxMouseEvent &event);
    void OnCaptureLost(wxMouseCaptureLostEvent &event);

    wxTopLevelWindow *owner;
    CResizableGrip &grip;
    const CResizableMinMax &limits;
};

}  // namespace qor
