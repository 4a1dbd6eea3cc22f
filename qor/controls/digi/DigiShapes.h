// The segment shapes of the display's characters, in design units: each
// character is 83 units high, and its segments are polygons whose points
// carry path codes (move, line, curve).
#pragma once

#include <span>

#include "qor/platform/WinGeometry.h"

// Path codes of a segment's points, with the framework's values.
#ifndef PT_MOVETO
#define PT_LINETO 0x02
#define PT_BEZIERTO 0x04
#define PT_MOVETO 0x06
#endif

namespace qor {

// One segment: its points and their path codes, side by side. The figure
// closes by itself after the last point.
struct DigiSegment {
    std::span<const CPoint> points;
    std::span<const unsigned char> codes;
};

// The segments of one kind of character, plain and smooth, by segment bit.
struct DigiShapeSet {
    int width;
    int count;
    const DigiSegment *plain;
    const DigiSegment *smooth;
};

constexpr int kDigiHeight = 83;

const DigiShapeSet &SevenSegmentShapes();
const DigiShapeSet &FourteenSegmentShapes();
const DigiShapeSet &ColonDotShapes();

}  // namespace qor
