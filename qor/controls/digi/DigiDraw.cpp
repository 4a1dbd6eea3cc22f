#include "qor/controls/digi/DigiDraw.h"

#include <cmath>

namespace qor {

std::array<CPoint, 3> FitCubicBezier(const std::vector<CPoint> &points) {
    if (points.empty()) return {};
    const CPoint p0 = points.front(), p3 = points.back();
    const double dx = p3.x - p0.x, dy = p3.y - p0.y;
    auto round = [](double x, double y) { return CPoint(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))); };
    std::array<CPoint, 3> thirds{round(p0.x + dx / 3, p0.y + dy / 3), round(p0.x + 2 * dx / 3, p0.y + 2 * dy / 3), p3};
    const std::size_t n = points.size();
    if (n < 3) return thirds;

    std::vector<double> t(n, 0.0);
    for (std::size_t i = 1; i < n; ++i)
        t[i] = t[i - 1] + std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    const double total = t[n - 1];
    for (std::size_t i = 0; i < n; ++i) t[i] = total > 0 ? t[i] / total : static_cast<double>(i) / (n - 1);

    // Minimise the squared distances over the two inner control points.
    double c11 = 0, c12 = 0, c22 = 0, x1 = 0, y1 = 0, x2 = 0, y2 = 0, cs = 0, xs = 0, ys = 0;
    for (std::size_t i = 0; i < n; ++i) {
        double u = 1 - t[i];
        double b0 = u * u * u, b1 = 3 * t[i] * u * u, b2 = 3 * t[i] * t[i] * u, b3 = t[i] * t[i] * t[i];
        double rx = points[i].x - b0 * p0.x - b3 * p3.x, ry = points[i].y - b0 * p0.y - b3 * p3.y;
        c11 += b1 * b1, c12 += b1 * b2, c22 += b2 * b2;
        x1 += b1 * rx, y1 += b1 * ry, x2 += b2 * rx, y2 += b2 * ry;
        cs += (b1 + b2) * (b1 + b2), xs += (b1 + b2) * rx, ys += (b1 + b2) * ry;
    }
    double det = c11 * c22 - c12 * c12;
    if (std::fabs(det) > 1e-12 * (c11 * c22 + 1e-300)) {
        return {round((x1 * c22 - x2 * c12) / det, (y1 * c22 - y2 * c12) / det),
                round((c11 * x2 - c12 * x1) / det, (c11 * y2 - c12 * y1) / det), p3};
    }
    // One inner point (or all at one parameter): both control points at the
    // spot that takes the curve through it.
    if (cs > 0) {
        CPoint q = round(xs / cs, ys / cs);
        return {q, q, p3};
    }
    return thirds;
}

std::vector<DigiPathOp> SegmentPath(const DigiSegment &segment, const DigiCell &cell, double xScale, double yScale) {
    const std::size_t n = std::min(segment.points.size(), segment.codes.size());
    std::vector<CPoint> pixels(n);
    for (std::size_t i = 0; i < n; ++i)
        pixels[i] = CPoint(static_cast<int>(std::lround(cell.left + segment.points[i].x * xScale)),
                           static_cast<int>(std::lround(cell.top + segment.points[i].y * yScale)));
    std::vector<DigiPathOp> path;
    for (std::size_t i = 0; i < n;) {
        unsigned char code = segment.codes[i];
        if (code != PT_BEZIERTO || i == 0) {
            path.push_back({i == 0 || code == PT_MOVETO ? DigiPathOp::Move : DigiPathOp::Line, {pixels[i]}});
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < n && segment.codes[end] == PT_BEZIERTO) ++end;
        std::size_t last = end < n ? end : end - 1;  // the run's end point
        std::vector<CPoint> run(pixels.begin() + static_cast<std::ptrdiff_t>(i - 1),
                                pixels.begin() + static_cast<std::ptrdiff_t>(last + 1));
        path.push_back({DigiPathOp::Curve, FitCubicBezier(run)});
        i = last + 1;
    }
    return path;
}

COLORREF BlendPen(COLORREF color, COLORREF back) {
    auto mix = [](int c, int b) { return static_cast<BYTE>(0.75 * c + 0.25 * b); };
    return RGB(mix(GetRValue(color), GetRValue(back)), mix(GetGValue(color), GetGValue(back)),
               mix(GetBValue(color), GetBValue(back)));
}

}  // namespace qor
