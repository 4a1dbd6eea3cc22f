// Applies a CResizableLayout to the children of one wxWidgets window.
#pragma once

#include <wx/event.h>

#include "qor/controls/layout/ResizableLayout.h"

class wxWindow;
class wxSizeEvent;
class wxWindowDestroyEvent;

namespace qor {

// Measures each child against its parent's client area when it is anchored,
// and moves and sizes the anchored children every time the parent changes
// size. The parent's size event is passed on afterwards, so a sizer the
// parent also has still runs. A child that is destroyed leaves the layout
// by itself.
class ResizableLayoutBinding : public wxEvtHandler {
public:
    explicit ResizableLayoutBinding(wxWindow *parent);
    ResizableLayoutBinding(const ResizableLayoutBinding &) = delete;
    ResizableLayoutBinding &operator=(const ResizableLayoutBinding &) = delete;

    // Anchors a direct child of the parent where it stands now. False for a
    // window that is not one, or anchors that are not fractions from 0 to 1.
    bool AddAnchor(wxWindow *child, ANCHOR topLeft, ANCHOR bottomRight);
    bool RemoveAnchor(wxWindow *child);
    void RemoveAllAnchors();
    // Moves the children to where the parent's present size puts them.
    void ArrangeLayout();

    const CResizableLayout &GetLayout() const { return layout; }

private:
    void OnSize(wxSizeEvent &event);
    void OnChildDestroyed(wxWindowDestroyEvent &event);

    wxWindow *parent;
    CResizableLayout layout;
};

}  // namespace qor
