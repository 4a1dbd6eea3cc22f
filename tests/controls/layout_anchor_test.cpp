// CResizableLayout: where anchored children go when their parent resizes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qor/controls/layout/ResizableLayout.h"

namespace layout_test {

// Fake windows: the layout only compares the pointers.
const int kWindows[4] = {};
const void *const kFirst = &kWindows[0];
const void *const kSecond = &kWindows[1];

CRect Arranged(const CResizableLayout &layout, CSize client, const void *window) {
    for (const auto &placement : layout.ArrangeLayout(client))
        if (placement.window == window) return placement.rect;
    ADD_FAILURE() << "window not arranged";
    return {};
}

struct AnchorCase {
    const char *what;
    ANCHOR topLeft;
    ANCHOR bottomRight;
    CSize client;
    CRect expected;
};

// A child at (20, 10)-(80, 40) in a 200 x 100 client.
const AnchorCase kAnchorCases[] = {
    {"stays with the top left", TOP_LEFT, TOP_LEFT, {300, 150}, {20, 10, 80, 40}},
    {"stretches both ways", TOP_LEFT, BOTTOM_RIGHT, {300, 150}, {20, 10, 180, 90}},
    {"follows the bottom right", BOTTOM_RIGHT, BOTTOM_RIGHT, {300, 150}, {120, 60, 180, 90}},
    {"follows the bottom left", BOTTOM_LEFT, BOTTOM_LEFT, {300, 150}, {20, 60, 80, 90}},
    {"stretches along the top", TOP_LEFT, TOP_RIGHT, {300, 150}, {20, 10, 180, 40}},
    {"keeps to the top centre", TOP_CENTER, TOP_CENTER, {300, 150}, {70, 10, 130, 40}},
    {"keeps to the centre", MIDDLE_CENTER, MIDDLE_CENTER, {300, 150}, {70, 35, 130, 65}},
    {"left half grows half as fast", TOP_LEFT, MIDDLE_CENTER, {300, 150}, {20, 10, 130, 65}},
    {"stretches down the right", TOP_RIGHT, BOTTOM_RIGHT, {300, 150}, {120, 10, 180, 90}},
    {"middle right follows halfway down", MIDDLE_RIGHT, MIDDLE_RIGHT, {300, 150}, {120, 35, 180, 65}},
    {"shrinks to nothing, never below", TOP_LEFT, BOTTOM_RIGHT, {50, 20}, {20, 10, 20, 10}},
    {"a negative client counts as none", TOP_LEFT, BOTTOM_RIGHT, {-5, -5}, {20, 10, 20, 10}},
    {"centre on an odd width rounds halves up", TOP_CENTER, TOP_CENTER, {301, 100}, {71, 10, 131, 40}},
    {"anchors between the named ones", ANCHOR{0.25, 0.75}, ANCHOR{0.25, 0.75}, {400, 200}, {70, 85, 130, 115}},
};

TEST(ResizableLayoutTest, ChildrenKeepTheirOffsetsToTheirAnchors) {
    for (const AnchorCase &c : kAnchorCases) {
        CResizableLayout layout;
        ASSERT_TRUE(layout.AddAnchor(kFirst, {20, 10, 80, 40}, {200, 100}, c.topLeft, c.bottomRight));
        EXPECT_EQ(Arranged(layout, c.client, kFirst), c.expected) << c.what;
    }
}

TEST(ResizableLayoutTest, EveryAnchorGivesBackTheRectangleAtTheSizeItWasMeasuredAgainst) {
    const ANCHOR anchors[] = {TOP_LEFT,      TOP_CENTER,   TOP_RIGHT,   MIDDLE_LEFT,   MIDDLE_CENTER,
                              MIDDLE_RIGHT, BOTTOM_LEFT, BOTTOM_CENTER, BOTTOM_RIGHT, ANCHOR{0.3, 0.7}};
    const CSize clients[] = {{200, 100}, {201, 99}, {7, 3}, {0, 0}, {32767, 32767}};
    for (CSize client : clients)
        for (ANCHOR a : anchors)
            for (ANCHOR b : anchors) {
                CResizableLayout layout;
                const CRect rect(-3, 5, 61, 77);
                ASSERT_TRUE(layout.AddAnchor(kFirst, rect, client, a, b));
                // Away and back again: rounding must not drift.
                layout.ArrangeLayout({client.cx * 3 + 1, client.cy * 2 + 1});
                EXPECT_EQ(Arranged(layout, client, kFirst), rect)
                    << client.cx << "x" << client.cy << " anchors " << a.x << "," << a.y << " " << b.x << "," << b.y;
            }
}

TEST(ResizableLayoutTest, RefusesWhatIsNoAnchorAndReplacesOnReAdding) {
    CResizableLayout layout;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (ANCHOR bad : {ANCHOR{-0.1, 0}, ANCHOR{0, 1.5}, ANCHOR{nan, 0}, ANCHOR{0, INFINITY}})
        EXPECT_FALSE(layout.AddAnchor(kFirst, {0, 0, 1, 1}, {10, 10}, TOP_LEFT, bad));
    EXPECT_FALSE(layout.AddAnchor(nullptr, {0, 0, 1, 1}, {10, 10}, TOP_LEFT));
    EXPECT_EQ(layout.GetAnchorCount(), 0u);

    ASSERT_TRUE(layout.AddAnchor(kFirst, {0, 0, 10, 10}, {100, 100}, TOP_LEFT));
    ASSERT_TRUE(layout.AddAnchor(kSecond, {0, 0, 10, 10}, {100, 100}, BOTTOM_RIGHT));
    ASSERT_TRUE(layout.AddAnchor(kFirst, {5, 5, 10, 10}, {100, 100}, TOP_LEFT, BOTTOM_RIGHT));
    EXPECT_EQ(layout.GetAnchorCount(), 2u);
    const auto placements = layout.ArrangeLayout({200, 200});
    ASSERT_EQ(placements.size(), 2u);
    EXPECT_EQ(placements[0].window, kFirst);  // still in the order first added
    EXPECT_EQ(placements[0].rect, CRect(5, 5, 110, 110));
    EXPECT_EQ(placements[1].rect, CRect(100, 100, 110, 110));

    EXPECT_TRUE(layout.RemoveAnchor(kFirst));
    EXPECT_FALSE(layout.RemoveAnchor(kFirst));
    EXPECT_FALSE(layout.IsAnchored(kFirst));
    EXPECT_TRUE(layout.IsAnchored(kSecond));
}

TEST(ResizableLayoutTest, HugeSizesSaturateInsteadOfOverflowing) {
    CResizableLayout layout;
    ASSERT_TRUE(layout.AddAnchor(kFirst, {std::numeric_limits<LONG>::max() - 10, 0,
                                          std::numeric_limits<LONG>::max(), 10},
                                 {0, 0}, BOTTOM_RIGHT));
    const CRect rect = Arranged(layout, {std::numeric_limits<LONG>::max(), 10}, kFirst);
    EXPECT_EQ(rect.right, std::numeric_limits<LONG>::max());
    EXPECT_LE(rect.left, rect.right);
}

}  // namespace layout_test
