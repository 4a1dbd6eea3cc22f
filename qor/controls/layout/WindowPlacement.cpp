#include "qor/controls/layout/WindowPlacement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "qor/controls/layout/Blanks.h"

namespace qor {
namespace {

bool ParseInteger(std::string_view text, int &value) {
    text = TrimBlanks(text, " ");  // spaces only: the text is ours
    if (!text.empty() && text.front() == '+') return false;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && !text.empty();
}

std::int64_t OverlapArea(const CRect &a, const CRect &b) {
    const std::int64_t width = std::min(a.right, b.right) - std::max(a.left, b.left);
    const std::int64_t height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return width > 0 && height > 0 ? width * height : 0;
}

// Squared length of the gap between two rectangles (0 when they touch or
// overlap).
std::int64_t GapSquared(const CRect &a, const CRect &b) {
    const std::int64_t dx = std::max<std::int64_t>({0, b.left - a.right, a.left - b.right});
    const std::int64_t dy = std::max<std::int64_t>({0, b.top - a.bottom, a.top - b.bottom});
    return dx * dx + dy * dy;
}

const CRect *TargetScreen(const CRect &window, const std::vector<CRect> &screens) {
    const CRect *best = nullptr;
    std::int64_t bestArea = 0;
    for (const CRect &screen : screens) {
        const std::int64_t area = OverlapArea(window, screen);
        if (!screen.IsRectEmpty() && area > bestArea) best = &screen, bestArea = area;
    }
    if (best) return best;
    std::int64_t bestGap = 0;
    for (const CRect &screen : screens) {
        const std::int64_t gap = GapSquared(window, screen);
        if (!screen.IsRectEmpty() && (!best || gap < bestGap)) best = &screen, bestGap = gap;
    }
    return best;
}

}  // namespace

std::string FormatPlacement(const WindowPlacement &placement) {
    const CRect &r = placement.normal;
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) +
           "," + std::to_string(r.bottom) + "," + (placement.maximized ? "1" : "0");
}

std::optional<WindowPlacement> ParsePlacement(std::string_view text) {
    std::array<int, 5> fields{};
    std::size_t count = 0;
    for (;;) {
        const auto comma = text.find(',');
        if (count == fields.size() || !ParseInteger(text.substr(0, comma), fields[count]))
            return std::nullopt;
        ++count;
        if (comma == std::string_view::npos) break;
        text.remove_prefix(comma + 1);
    }
    if (count != fields.size()) return std::nullopt;
    for (std::size_t i = 0; i < 4; ++i)
        if (fields[i] < -kMaxPlacementCoordinate || fields[i] > kMaxPlacementCoordinate)
            return std::nullopt;
    const CRect normal(fields[0], fields[1], fields[2], fields[3]);
    if (normal.IsRectEmpty() || (fields[4] != 0 && fields[4] != 1)) return std::nullopt;
    return WindowPlacement{normal, fields[4] == 1};
}

WindowPlacement FitPlacement(WindowPlacement placement, const std::vector<CRect> &workAreas) {
    const CRect *screen = TargetScreen(placement.normal, workAreas);
    if (!screen) return placement;
    CRect &r = placement.normal;
    const int width = std::min(r.Width(), screen->Width());
    const int height = std::min(r.Height(), screen->Height());
    const int left = std::clamp<int>(r.left, screen->left, screen->right - width);
    const int top = std::clamp<int>(r.top, screen->top, screen->bottom - height);
    r = CRect(left, top, left + width, top + height);
    return placement;
}

}  // namespace qor
