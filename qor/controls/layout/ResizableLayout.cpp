#include "qor/controls/layout/ResizableLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

bool IsFraction(double value) { return std::isfinite(value) && value >= 0 && value <= 1; }

// The anchor's position along an extent, rounded halves up.
std::int64_t AnchorPosition(double fraction, std::int64_t extent) {
    return static_cast<std::int64_t>(std::floor(fraction * static_cast<double>(extent) + 0.5));
}

LONG Saturate(std::int64_t value) {
    return static_cast<LONG>(std::clamp<std::int64_t>(value, std::numeric_limits<LONG>::min(),
                                                      std::numeric_limits<LONG>::max()));
}

std::int64_t Extent(LONG value) { return std::max<std::int64_t>(value, 0); }

}  // namespace

bool CResizableLayout::AddAnchor(Window window, const CRect &rect, CSize client, ANCHOR topLeft,
                                 ANCHOR bottomRight) {
    if (!window || !IsFraction(topLeft.x) || !IsFraction(topLeft.y) ||
        !IsFraction(bottomRight.x) || !IsFraction(bottomRight.y))
        return false;
    const std::int64_t cx = Extent(client.cx), cy = Extent(client.cy);
    Item item{window, topLeft, bottomRight,
              CRect(Saturate(rect.left - AnchorPosition(topLeft.x, cx)),
                    Saturate(rect.top - AnchorPosition(topLeft.y, cy)),
                    Saturate(rect.right - AnchorPosition(bottomRight.x, cx)),
                    Saturate(rect.bottom - AnchorPosition(bottomRight.y, cy)))};
    auto found = std::find_if(items.begin(), items.end(),
                              [&](const Item &each) { return each.window == window; });
    if (found != items.end())
        *found = item;
    else
        items.push_back(item);
    return true;
}

bool CResizableLayout::RemoveAnchor(Window window) {
    const auto before = items.size();
    std::erase_if(items, [&](const Item &each) { return each.window == window; });
    return items.size() != before;
}

bool CResizableLayout::IsAnchored(Window window) const {
    return std::any_of(items.begin(), items.end(),
                       [&](const Item &each) { return each.window == window; });
}

std::vector<CResizableLayout::Placement> CResizableLayout::ArrangeLayout(CSize client) const {
    const std::int64_t cx = Extent(client.cx), cy = Extent(client.cy);
    std::vector<Placement> placements;
    placements.reserve(items.size());
    for (const Item &item : items) {
        const std::int64_t left = AnchorPosition(item.topLeft.x, cx) + item.margins.left;
        const std::int64_t top = AnchorPosition(item.topLeft.y, cy) + item.margins.top;
        const std::int64_t right = AnchorPosition(item.bottomRight.x, cx) + item.margins.right;
        const std::int64_t bottom = AnchorPosition(item.bottomRight.y, cy) + item.margins.bottom;
        placements.push_back({item.window, CRect(Saturate(left), Saturate(top),
                                                 Saturate(std::max(left, right)),
                                                 Saturate(std::max(top, bottom)))});
    }
    return placements;
}
