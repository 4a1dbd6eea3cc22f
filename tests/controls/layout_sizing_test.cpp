// Size limits and the size grip.
#include <gtest/gtest.h>

#include "qor/controls/layout/ResizableGrip.h"
#include "qor/controls/layout/ResizableMinMax.h"

namespace layout_test {

TEST(ResizableMinMaxTest, EachDimensionIsHeldBetweenItsLimitsAndTheMinimumWins) {
    struct Case {
        const char *what;
        CSize min, max;  // {-1, -1}: not set
        CSize asked, expected;
    } const cases[] = {
        {"no limits", {-1, -1}, {-1, -1}, {5000, 3}, {5000, 3}},
        {"no limits, negative", {-1, -1}, {-1, -1}, {-5, 10}, {0, 10}},
        {"below the minimum", {300, 200}, {-1, -1}, {100, 500}, {300, 500}},
        {"above the maximum", {-1, -1}, {800, 600}, {1000, 100}, {800, 100}},
        {"within both", {300, 200}, {800, 600}, {400, 300}, {400, 300}},
        {"a maximum of 0 is unbounded", {-1, -1}, {0, 600}, {9000, 9000}, {9000, 600}},
        {"a minimum above the maximum wins", {500, 500}, {400, 400}, {450, 600}, {500, 500}},
    };
    for (const Case &c : cases) {
        CResizableMinMax limits;
        if (c.min.cx >= 0) limits.SetMinTrackSize(c.min);
        if (c.max.cx >= 0) limits.SetMaxTrackSize(c.max);
        EXPECT_EQ(limits.ClampTrackSize(c.asked), c.expected) << c.what;
    }
    CResizableMinMax limits;
    limits.SetMinTrackSize({300, 200});
    limits.SetMaxTrackSize({-4, 600});
    EXPECT_EQ(limits.GetMaxTrackSize(), CSize(0, 600));
    limits.ResetMinTrackSize();
    limits.ResetMaxTrackSize();
    EXPECT_EQ(limits.ClampTrackSize({1, 9000}), CSize(1, 9000));
}

TEST(ResizableGripTest, SitsInTheCornerAndHidesWhileMaximised) {
    CResizableGrip grip;
    EXPECT_EQ(grip.GetGripRect({200, 100}), CRect(184, 84, 200, 100));
    EXPECT_TRUE(grip.IsSizeGripVisible());
    grip.SetMaximized(true);
    EXPECT_FALSE(grip.IsSizeGripVisible());
    grip.SetMaximized(false);
    grip.ShowSizeGrip(false);
    EXPECT_FALSE(grip.IsSizeGripVisible());
}

TEST(ResizableGripTest, MarksFillTheBottomRightHalfInsideTheGrip) {
    for (CSize size : {CSize(16, 16), CSize(13, 20), CSize(3, 3)}) {
        CResizableGrip grip;
        grip.SetGripSize(size);
        const int count = std::min(size.cx, size.cy) / 4;
        const auto marks = grip.GetGripMarks();
        EXPECT_EQ(marks.size(), static_cast<std::size_t>(count * (count + 1) / 2));
        for (const CRect &mark : marks) {
            EXPECT_GE(mark.left, 0);
            EXPECT_GE(mark.top, 0);
            EXPECT_LE(mark.right, size.cx);
            EXPECT_LE(mark.bottom, size.cy);
            // On or below the diagonal from the top-right to the bottom-left.
            EXPECT_GE((mark.left - (size.cx - 4 * count)) / 4 + (mark.top - (size.cy - 4 * count)) / 4, count - 1);
        }
    }
}

TEST(ResizableGripTest, ADragAsksForTheStartSizePlusThePointersTravelWithinLimits) {
    CResizableMinMax limits;
    limits.SetMinTrackSize({200, 150});
    CResizableGrip grip;
    EXPECT_EQ(grip.DragTo({50, 50}, limits), CSize());  // no drag under way
    grip.BeginDrag({1000, 700}, {400, 300});
    EXPECT_TRUE(grip.IsDragging());
    EXPECT_EQ(grip.DragTo({1100, 650}, limits), CSize(500, 250));
    EXPECT_EQ(grip.DragTo({500, 300}, limits), CSize(200, 150));
    EXPECT_EQ(grip.DragTo({1000, 700}, limits), CSize(400, 300));
    grip.EndDrag();
    EXPECT_FALSE(grip.IsDragging());
}

}  // namespace layout_test
