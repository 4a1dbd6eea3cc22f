// The drawing of the segment display without a device context: where each
// character goes, and each segment as a path of pixel points.
#pragma once

#include <array>
#include <vector>

#include "qor/controls/digi/CDigiChar.h"

namespace qor {

// One character's box in the window.
struct DigiCell {
    const CDigiChar *character;
    double left, top, width, height;
};

struct DigiLayout {
    double xScale = 0, yScale = 0, xOffset = 0, yOffset = 0;
    std::vector<DigiCell> cells;
};

// One step of a segment's path; a curve's points are its two control
// points and its end, as PolyBezierTo takes them.
struct DigiPathOp {
    enum Type : unsigned char { Move, Line, Curve } type;
    std::array<CPoint, 3> points;
};

// A filled segment, lit or not, closed after its last step.
struct DigiShape {
    bool lit;
    std::vector<DigiPathOp> path;
};

// Everything a paint does: the background, then each segment filled with
// the lit or unlit brush and outlined with the matching pen.
struct DigiPicture {
    int width = 0, height = 0;
    COLORREF back = 0, onBrush = 0, offBrush = 0, onPen = 0, offPen = 0;
    std::vector<DigiShape> shapes;
};

// A least-squares fit of one cubic to the points, from the first to the
// last (which it passes through), by chord-length parameters: the two
// control points and the end point, rounded to pixels.
std::array<CPoint, 3> FitCubicBezier(const std::vector<CPoint> &points);

// The segment's path in the cell, its points scaled into the box and
// rounded; each run of curve points is fitted with one cubic together with
// the point before it and the point after it (its own last point when the
// run ends the figure).
std::vector<DigiPathOp> SegmentPath(const DigiSegment &segment, const DigiCell &cell, double xScale, double yScale);

// Three quarters of the colour and a quarter of the background, channel by
// channel: the outline that softens a segment into the background.
COLORREF BlendPen(COLORREF color, COLORREF back);

}  // namespace qor
