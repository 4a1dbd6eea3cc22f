// The segment display: which segments each character lights, the shapes
// and their mirrors, the layout in a window, the curve fit and the paint.
#include <gtest/gtest.h>

#include <cmath>

#include "qor/controls.h"

namespace {

// A display that shows its protected parts and counts invalidations.
struct Display : CDigistring {
    int invalidations = 0, erases = 0;
    void Invalidate(bool erase) override { ++invalidations, erases += erase; }
    std::unique_ptr<CDigiChar> Char(char c) { return std::unique_ptr<CDigiChar>(DefineChar(c)); }
};

TEST(Digits, CharactersAndTheirMasks) {
    struct Case {
        char c;
        int width, segments;
        unsigned mask;
    } cases[] = {
        {'8', 49, 7, 0x7F}, {'-', 49, 7, 0x08},   {'_', 49, 7, 0x40},   {' ', 49, 7, 0x00},   {'0', 49, 7, 0x77},
        {'1', 49, 7, 0x24}, {'A', 49, 14, 0x3BC0}, {'Z', 49, 14, 0x240C}, {'*', 49, 14, 0xFF}, {'+', 49, 14, 0xE1},
        {'.', 18, 3, 0x04}, {':', 18, 3, 0x03},
    };
    Display display;
    for (const Case &c : cases) {
        auto character = display.Char(c.c);
        ASSERT_TRUE(character) << c.c;
        EXPECT_EQ(character->GetWidth(), c.width) << c.c;
        EXPECT_EQ(character->GetSegmentCount(), c.segments) << c.c;
        EXPECT_EQ(character->GetMask(), c.mask) << c.c;
    }
    for (char c : {'a', '#', '\0', '\xff', '/'}) EXPECT_FALSE(display.Char(c));
    display.ModifyDigiStyle(0, CDigistring::DS_STYLE14);
    EXPECT_EQ(display.Char('8')->GetMask(), 0x3FC0);
    EXPECT_EQ(display.Char('8')->GetSegmentCount(), 14);
    EXPECT_EQ(display.Char('_')->GetMask(), 0x0400);
}

TEST(Digits, ShapesAreTheirTablesAndMirrors) {
    CDigi7Segment seven;
    seven.SetElements(0x7F, 0);
    auto pts = [](const qor::DigiSegment &s) {
        std::vector<std::pair<int, int>> v;
        for (const CPoint &p : s.points) v.emplace_back(p.x, p.y);
        return v;
    };
    using P = std::vector<std::pair<int, int>>;
    EXPECT_EQ(pts(seven.GetSegment(0)), (P{{5, 4}, {12, 11}, {36, 11}, {43, 4}}));
    EXPECT_EQ(pts(seven.GetSegment(2)), (P{{44, 6}, {44, 40}, {37, 36}, {37, 13}}));  // B mirrored in x
    EXPECT_EQ(pts(seven.GetSegment(6)), (P{{5, 78}, {12, 71}, {36, 71}, {43, 78}}));  // A mirrored in y
    EXPECT_EQ(pts(seven.GetSegment(5)), (P{{44, 76}, {44, 42}, {37, 46}, {37, 69}}));
    EXPECT_TRUE(seven.GetSegment(7).points.empty());
    seven.SetElements(0x7F, CDigistring::DS_SMOOTH);
    const qor::DigiSegment &c = seven.GetSegment(2);
    EXPECT_EQ(c.points.size(), 10u);
    EXPECT_EQ(std::vector<unsigned char>(c.codes.begin(), c.codes.end()),
              (std::vector<unsigned char>{6, 4, 4, 4, 2, 2, 2, 4, 4, 4}));
    EXPECT_EQ(pts(seven.GetSegment(5)).front(), (std::pair<int, int>{37, 46}));  // C' mirrored in y

    CDigi14Segment fourteen;
    fourteen.SetElements(0, CDigistring::DS_SMOOTH);
    for (int s = 0; s < 14; ++s) {
        const qor::DigiSegment &seg = fourteen.GetSegment(s);
        ASSERT_EQ(seg.points.size(), seg.codes.size());
        EXPECT_EQ(seg.codes[0], PT_MOVETO);
        for (const CPoint &p : seg.points) EXPECT_TRUE(p.x >= 0 && p.x <= 48 && p.y >= 0 && p.y <= 82) << s;
    }
    EXPECT_EQ(pts(fourteen.GetSegment(10)).back(), (std::pair<int, int>{40, 78}));  // I' mirrored in y
}

TEST(Digits, LayoutStretchesOrKeepsTheAspect) {
    Display display;
    display.SetText("12:30");
    qor::DigiLayout kept = display.Layout(1000, 83);
    ASSERT_EQ(kept.cells.size(), 5u);
    EXPECT_DOUBLE_EQ(kept.xScale, 1.0);
    EXPECT_DOUBLE_EQ(kept.xOffset, (1000 - 4 * 49 - 18) / 2.0);
    EXPECT_DOUBLE_EQ(kept.cells[2].width, 18);
    EXPECT_DOUBLE_EQ(kept.cells[3].left, kept.xOffset + 2 * 49 + 18);
    display.ModifyDigiStyle(CDigistring::DS_SZ_PROP, 0);
    qor::DigiLayout stretched = display.Layout(1000, 83);
    EXPECT_DOUBLE_EQ(stretched.xScale, 1000.0 / 214);
    EXPECT_DOUBLE_EQ(stretched.xOffset, 0);
    display.SetText("ab?");
    EXPECT_EQ(display.Layout(10, 10).cells.size(), 2u);  // lower case shows as capitals; "?" takes no room
    display.SetText("");
    qor::DigiLayout empty = display.Layout(100, 50);
    EXPECT_TRUE(empty.cells.empty());
    EXPECT_EQ(empty.xScale, 0);
    EXPECT_TRUE(display.Paint(100, 50).shapes.empty());
    EXPECT_TRUE(display.Paint(-5, -5).shapes.empty());
}

TEST(Digits, ColoursInvalidateOnlyWhenTheyChange) {
    Display display;
    EXPECT_EQ(display.GetString(), "EMPTY");
    EXPECT_EQ(display.GetOffColor(), 0x00792925u);
    EXPECT_EQ(display.GetDigiStyle(), 4u);
    display.SetColor(display.GetOffColor(), display.GetOnColor());
    display.SetBackColor(display.GetBackColor());
    EXPECT_EQ(display.invalidations, 0);
    display.SetColor(RGB(1, 2, 3), display.GetOnColor());
    display.SetBackColor(RGB(0, 0, 0));
    EXPECT_EQ(display.erases, 2);
    display.Format("%05d", 42);
    EXPECT_EQ(display.GetString(), "00042");
    EXPECT_EQ(qor::BlendPen(RGB(200, 100, 0), RGB(0, 100, 200)), RGB(150, 100, 50));
}

TEST(Digits, CurveFitPassesThroughTheEndsAndNearThePoints) {
    std::vector<CPoint> arc;
    for (int i = 0; i <= 8; ++i) {
        double a = M_PI / 2 * i / 8;
        arc.emplace_back(static_cast<int>(std::lround(100 * std::cos(a))), static_cast<int>(std::lround(100 * std::sin(a))));
    }
    auto fit = qor::FitCubicBezier(arc);
    EXPECT_EQ(fit[2], arc.back());
    // The classic quarter circle has its control points 55 along the tangents.
    EXPECT_NEAR(fit[0].x, 100, 3);
    EXPECT_NEAR(fit[0].y, 55, 6);
    EXPECT_NEAR(fit[1].x, 55, 6);
    EXPECT_NEAR(fit[1].y, 100, 3);
    auto line = qor::FitCubicBezier({CPoint(0, 0), CPoint(30, 3)});
    EXPECT_EQ(line[0], CPoint(10, 1));
    auto one = qor::FitCubicBezier({CPoint(0, 0), CPoint(5, 5), CPoint(10, 0)});
    EXPECT_EQ(one[0], one[1]);
    EXPECT_EQ(qor::FitCubicBezier({CPoint(4, 4), CPoint(4, 4), CPoint(4, 4)})[2], CPoint(4, 4));
    EXPECT_EQ(qor::FitCubicBezier({})[2], CPoint());
}

TEST(Digits, PaintFillsEverySegmentLitOrNot) {
    Display display;
    display.ModifyDigiStyle(0, CDigistring::DS_SMOOTH);
    display.SetText("8.");
    qor::DigiPicture picture = display.Paint(67, 83);
    ASSERT_EQ(picture.shapes.size(), 10u);
    int lit = 0;
    for (const auto &shape : picture.shapes) lit += shape.lit;
    EXPECT_EQ(lit, 8);
    // Smooth top segment: move, one curve for its rounded end, then lines.
    const auto &top = picture.shapes[0].path;
    ASSERT_EQ(top.size(), 4u);
    EXPECT_EQ(top[0].type, qor::DigiPathOp::Move);
    EXPECT_EQ(top[1].type, qor::DigiPathOp::Curve);
    EXPECT_EQ(top[1].points[2], CPoint(12, 11));
    EXPECT_EQ(top[3].points[0], CPoint(39, 4));
    // The upper right's last run of curve points ends the figure at its last point.
    const auto &right = picture.shapes[2].path;
    EXPECT_EQ(right.back().type, qor::DigiPathOp::Curve);
    EXPECT_EQ(right.back().points[2], CPoint(37, 12));
    EXPECT_EQ(picture.onPen, qor::BlendPen(picture.onBrush, picture.back));
}

}  // namespace
