// The geometry of a strip of tabs: how wide each tab is, which ones fit,
// the scroll arrows when they do not all fit, and what a click hits.
#pragma once

#include <vector>

#include "qor/platform/WinGeometry.h"

namespace qor {

// Tabs sit side by side from the strip's left edge, each as wide as its
// label plus padding on both sides, held between a least and a greatest
// width. When they do not all fit, two arrow buttons take the strip's right
// end and the tabs scroll by whole tabs: the first tab in view shows (cut
// to the room if it is wider), the others only when they fit wholly, and
// selecting a tab scrolls it into view. A strip that grows wide
// enough scrolls back so that no room is wasted on the left.
class TabStripLayout {
public:
    struct Metrics {
        int padding = 10;
        int minWidth = 40;
        int maxWidth = 240;
        int arrowWidth = 16;
        int height = 26;
    };

    // What HitTest finds besides a tab's index.
    static constexpr int kNothing = -1;
    static constexpr int kScrollBack = -2;
    static constexpr int kScrollForward = -3;

    TabStripLayout() = default;
    explicit TabStripLayout(const Metrics &metrics) : metrics(metrics) {}

    // The labels' widths in pixels, one per tab; keeps the selection when it
    // still exists.
    void SetLabelWidths(std::vector<int> widths);
    void SetStripWidth(int width);
    // Selects a tab (-1 for none) and scrolls it into view; out of range is -1.
    void Select(int index);
    // Scrolls by whole tabs, within what there is to scroll.
    void ScrollBy(int tabs);

    int GetSelection() const { return selected; }
    int GetTabCount() const { return static_cast<int>(widths.size()); }
    int GetFirstVisible() const { return first; }
    bool HasArrows() const { return arrows; }
    bool CanScrollBack() const { return arrows && first > 0; }
    bool CanScrollForward() const;

    // A tab's rectangle in the strip, empty when it is out of view.
    CRect GetTabRect(int index) const;
    // The back (-1) or forward (+1) arrow; empty without arrows.
    CRect GetArrowRect(int direction) const;
    // A tab's index, kScrollBack, kScrollForward or kNothing.
    int HitTest(CPoint point) const;

    // The strip's height and the width it wants to show every tab.
    int GetHeight() const { return metrics.height; }
    int GetPreferredWidth() const;

private:
    int TabWidth(int index) const;
    int TabsRoom() const;
    int LastShown() const;
    void Rearrange();

    Metrics metrics;
    std::vector<int> widths;
    int stripWidth = 0;
    int selected = -1;
    int first = 0;
    bool arrows = false;
};

}  // namespace qor
