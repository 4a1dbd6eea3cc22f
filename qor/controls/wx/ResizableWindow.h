// A window whose children follow anchors when it is resized: the part that
// CResizableDialog and CResizablePage share.
#pragma once

#include "qor/controls/wx/ResizableLayoutBinding.h"

namespace qor {

// Base is the wxWidgets window class to extend (wxDialog, wxPanel, ...).
// Anchor a child after it has its designed place and the window its
// designed size: the child keeps its offsets to its anchors from then on.
template <class Base>
class ResizableWindow : public Base {
public:
    using Base::Base;

    bool AddAnchor(wxWindow *child, ANCHOR topLeft, ANCHOR bottomRight) {
        return layoutBinding.AddAnchor(child, topLeft, bottomRight);
    }
    // Both corners on one anchor: the child moves and keeps its size.
    bool AddAnchor(wxWindow *child, ANCHOR anchor) { return layoutBinding.AddAnchor(child, anchor, anchor); }
    bool RemoveAnchor(wxWindow *child) { return layoutBinding.RemoveAnchor(child); }
    void RemoveAllAnchors() { layoutBinding.RemoveAllAnchors(); }
    void ArrangeLayout() { layoutBinding.ArrangeLayout(); }
    const CResizableLayout &GetLayout() const { return layoutBinding.GetLayout(); }

private:
    ResizableLayoutBinding layoutBinding{this};
};

}  // namespace qor
