// A top-level window's placement as it is remembered between runs, its text
// form in the registry, and the rule that brings a remembered placement
// back onto the screens there are now.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qor/platform/WinGeometry.h"

namespace qor {

// The window's outer rectangle in screen coordinates when it is neither
// maximised nor minimised, and whether it was maximised. A minimised window
// is remembered as a normal one: a window that opens minimised is lost.
struct WindowPlacement {
    CRect normal;
    bool maximized = false;
    bool operator==(const WindowPlacement &) const = default;
};

// Coordinates beyond this are nobody's screen; they come from a damaged or
// hand-edited value.
inline constexpr int kMaxPlacementCoordinate = 1 << 20;

// "left,top,right,bottom,maximized", for example "100,80,740,560,0".
std::string FormatPlacement(const WindowPlacement &placement);

// The placement in `text`, or nothing unless `text` is exactly that form:
// five decimal integers (spaces around each allowed), coordinates within
// kMaxPlacementCoordinate, a width and height of at least 1, and 0 or 1 for
// maximized.
std::optional<WindowPlacement> ParsePlacement(std::string_view text);

// Where a remembered placement goes on the screens there are now, given by
// their work areas (the primary first). The window ends up wholly on one
// screen:
// - the screen whose work area it overlaps most (the earlier on a tie), or,
//   when it overlaps none (its monitor is gone), the one nearest to it;
// - a width or height larger than that work area is cut to it;
// - the window then moves the shortest way that brings it inside.
// Empty work areas are ignored; with none left the placement stands as it
// is. The maximised flag is kept.
WindowPlacement FitPlacement(WindowPlacement placement, const std::vector<CRect> &workAreas);

}  // namespace qor
