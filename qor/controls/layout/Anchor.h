// Where a child window hangs from its parent: a point given as fractions of
// the parent's client width and height, (0, 0) its top-left corner and
// (1, 1) its bottom-right one.
#pragma once

struct ANCHOR {
    double x = 0;
    double y = 0;
    constexpr bool operator==(const ANCHOR &) const = default;
};

// The nine named anchors: the corners, the middles of the edges and the centre.
inline constexpr ANCHOR TOP_LEFT{0, 0};
inline constexpr ANCHOR TOP_CENTER{0.5, 0};
inline constexpr ANCHOR TOP_RIGHT{1, 0};
inline constexpr ANCHOR MIDDLE_LEFT{0, 0.5};
inline constexpr ANCHOR MIDDLE_CENTER{0.5, 0.5};
inline constexpr ANCHOR MIDDLE_RIGHT{1, 0.5};
inline constexpr ANCHOR BOTTOM_LEFT{0, 1};
inline constexpr ANCHOR BOTTOM_CENTER{0.5, 1};
inline constexpr ANCHOR BOTTOM_RIGHT{1, 1};
