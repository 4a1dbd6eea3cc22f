#include "qor/controls/layout/TabStripLayout.h"

#include <algorithm>

namespace qor {

int TabStripLayout::TabWidth(int index) const {
    const int wanted = std::max(widths[index], 0) + 2 * metrics.padding;
    return std::clamp(wanted, metrics.minWidth, std::max(metrics.minWidth, metrics.maxWidth));
}

int TabStripLayout::GetPreferredWidth() const {
    int total = 0;
    for (int i = 0; i < GetTabCount(); ++i) total += TabWidth(i);
    return total;
}

int TabStripLayout::TabsRoom() const {
    return arrows ? std::max(0, stripWidth - 2 * metrics.arrowWidth) : stripWidth;
}

int TabStripLayout::LastShown() const {
    // The first tab in view shows even when it is wider than the room.
    int used = 0, last = first < GetTabCount() ? first : first - 1;
    for (int i = first; i < GetTabCount() && used + TabWidth(i) <= TabsRoom(); ++i)
        used += TabWidth(i), last = i;
    return last;
}

bool TabStripLayout::CanScrollForward() const { return arrows && LastShown() < GetTabCount() - 1; }

void TabStripLayout::SetLabelWidths(std::vector<int> labelWidths) {
    widths = std::move(labelWidths);
    if (selected >= GetTabCount()) selected = -1;
    Rearrange();
    Select(selected);
}

void TabStripLayout::SetStripWidth(int width) {
    stripWidth = std::max(width, 0);
    Rearrange();
    Select(selected);
}

void TabStripLayout::Select(int index) {
    selected = index >= 0 && index < GetTabCount() ? index : -1;
    if (selected < 0) return;
    if (selected < first) first = selected;
    while (first < selected && LastShown() < selected) ++first;
}

void TabStripLayout::ScrollBy(int tabs) {
    first = std::clamp(first + tabs, 0, std::max(GetTabCount() - 1, 0));
    Rearrange();
}

void TabStripLayout::Rearrange() {
    arrows = GetPreferredWidth() > stripWidth;
    // Scrolled no further than it takes to show the last tab, so the room
    // on the right is never wasted while tabs hide on the left.
    int room = TabsRoom(), maxFirst = GetTabCount() - 1;
    for (; maxFirst > 0 && room - TabWidth(maxFirst) >= TabWidth(maxFirst - 1); --maxFirst)
        room -= TabWidth(maxFirst);
    first = std::clamp(first, 0, std::max(maxFirst, 0));
}

CRect TabStripLayout::GetTabRect(int index) const {
    if (index < first || index > LastShown()) return CRect();
    int left = 0;
    for (int i = first; i < index; ++i) left += TabWidth(i);
    return CRect(left, 0, std::min(left + TabWidth(index), std::max(TabsRoom(), left)), metrics.height);
}

CRect TabStripLayout::GetArrowRect(int direction) const {
    if (!arrows || (direction != -1 && direction != 1)) return CRect();
    const int right = direction < 0 ? stripWidth - metrics.arrowWidth : stripWidth;
    return CRect(std::max(right - metrics.arrowWidth, 0), 0, std::max(right, 0), metrics.height);
}

int TabStripLayout::HitTest(CPoint point) const {
    if (GetArrowRect(-1).PtInRect(point)) return kScrollBack;
    if (GetArrowRect(1).PtInRect(point)) return kScrollForward;
    for (int i = first; i <= LastShown(); ++i)
        if (GetTabRect(i).PtInRect(point)) return i;
    return kNothing;
}

}  // namespace qor
