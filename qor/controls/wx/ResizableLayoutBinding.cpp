#include "qor/controls/wx/ResizableLayoutBinding.h"

#include <wx/window.h>

namespace qor {
namespace {

CRect ToRect(const wxRect &r) { return CRect(r.x, r.y, r.x + r.width, r.y + r.height); }

CSize ClientSize(const wxWindow *window) {
    const wxSize size = window->GetClientSize();
    return {size.x, size.y};
}

}  // namespace

ResizableLayoutBinding::ResizableLayoutBinding(wxWindow *parent) : parent(parent) {
    parent->Bind(wxEVT_SIZE, &ResizableLayoutBinding::OnSize, this);
}

bool ResizableLayoutBinding::AddAnchor(wxWindow *child, ANCHOR topLeft, ANCHOR bottomRight) {
    if (!child || child->GetParent() != parent) return false;
    const bool known = layout.IsAnchored(child);
    if (!layout.AddAnchor(child, ToRect(child->GetRect()), ClientSize(parent), topLeft, bottomRight))
        return false;
    if (!known) child->Bind(wxEVT_DESTROY, &ResizableLayoutBinding::OnChildDestroyed, this);
    return true;
}

// A child that leaves the layout keeps its destroy handler: removing a
// window that is not anchored does nothing.
bool ResizableLayoutBinding::RemoveAnchor(wxWindow *child) { return layout.RemoveAnchor(child); }

void ResizableLayoutBinding::RemoveAllAnchors() { layout.RemoveAllAnchors(); }

void ResizableLayoutBinding::ArrangeLayout() {
    for (const auto &placement : layout.ArrangeLayout(ClientSize(parent))) {
        auto *child = static_cast<wxWindow *>(const_cast<void *>(placement.window));
        const CRect &r = placement.rect;
        child->SetSize(r.left, r.top, r.Width(), r.Height(), wxSIZE_ALLOW_MINUS_ONE);
    }
}

void ResizableLayoutBinding::OnSize(wxSizeEvent &event) {
    ArrangeLayout();
    event.Skip();
}

void ResizableLayoutBinding::OnChildDestroyed(wxWindowDestroyEvent &event) {
    layout.RemoveAnchor(event.GetWindow());
    event.Skip();
}

}  // namespace qor
