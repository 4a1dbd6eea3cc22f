// The anchor arithmetic of a resizable window, without any toolkit: where
// each anchored child goes when its parent's client area changes size.
#pragma once

#include <cstddef>
#include <vector>

#include "qor/controls/layout/Anchor.h"
#include "qor/platform/WinGeometry.h"

// Each child is anchored by two points: its top-left corner follows the
// first anchor and its bottom-right corner the second, each keeping the
// offset it had to its anchor when it was added. A child with both anchors
// the same moves and keeps its size; one anchored TOP_LEFT and BOTTOM_RIGHT
// grows and shrinks with the parent.
//
// Anchor positions are rounded to the nearest pixel (halves up), so at the
// client size it was measured against every child gets back exactly the
// rectangle it was added with. A client too small for a child's offsets
// gives it a width or height of 0, never a negative one. Children are
// arranged in the order they were added.
//
// The layout knows a child only by an opaque pointer that the toolkit
// adapter chooses (its window object); it never dereferences it.
class CResizableLayout {
public:
    using Window = const void *;
    struct Placement {
        Window window;
        CRect rect;
    };

    // Anchors `window`, whose rectangle in the parent's client coordinates is
    // `rect` while the client area is `client`. Adding a window again
    // replaces its anchors. False, and nothing changed, for a null window or
    // an anchor that is not a finite fraction from 0 to 1.
    bool AddAnchor(Window window, const CRect &rect, CSize client, ANCHOR topLeft,
                   ANCHOR bottomRight);
    // Both corners on one anchor: the child moves and keeps its size.
    bool AddAnchor(Window window, const CRect &rect, CSize client, ANCHOR anchor) {
        return AddAnchor(window, rect, client, anchor, anchor);
    }
    bool RemoveAnchor(Window window);
    void RemoveAllAnchors() { items.clear(); }

    bool IsAnchored(Window window) const;
    std::size_t GetAnchorCount() const { return items.size(); }

    // Where every anchored child goes in a client area of `client` (a
    // negative extent counts as 0).
    std::vector<Placement> ArrangeLayout(CSize client) const;

private:
    struct Item {
        Window window;
        ANCHOR topLeft;
        ANCHOR bottomRight;
        CRect margins;  // each edge's offset from its anchor point
    };

    std::vector<Item> items;
};
