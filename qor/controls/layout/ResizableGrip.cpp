#include "qor/controls/layout/ResizableGrip.h"

#include <algorithm>

namespace {

constexpr int kMarkPitch = 4;
constexpr int kMarkSize = 2;

}  // namespace

void CResizableGrip::SetGripSize(CSize grip) {
    size = {std::max<int>(grip.cx, 0), std::max<int>(grip.cy, 0)};
}

CRect CResizableGrip::GetGripRect(CSize client) const {
    return CRect(client.cx - size.cx, client.cy - size.cy, client.cx, client.cy);
}

std::vector<CRect> CResizableGrip::GetGripMarks() const {
    const int count = std::min(size.cx, size.cy) / kMarkPitch;
    std::vector<CRect> marks;
    for (int row = 0; row < count; ++row)
        for (int column = count - 1 - row; column < count; ++column) {
            const int x = size.cx - (count - column) * kMarkPitch;
            const int y = size.cy - (count - row) * kMarkPitch;
            marks.emplace_back(x, y, x + kMarkSize, y + kMarkSize);
        }
    return marks;
}

void CResizableGrip::BeginDrag(CPoint pointer, CSize windowSize) {
    dragging = true;
    dragStart = pointer;
    dragStartSize = windowSize;
}

CSize CResizableGrip::DragTo(CPoint pointer, const CResizableMinMax &limits) const {
    if (!dragging) return dragStartSize;
    const CPoint moved = pointer - dragStart;
    return limits.ClampTrackSize({static_cast<int>(dragStartSize.cx + moved.x),
                                  static_cast<int>(dragStartSize.cy + moved.y)});
}
