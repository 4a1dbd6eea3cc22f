// Remembered placements: their text form, what a hand-edited value gives,
// and where a placement lands on the screens there are now.
#include <gtest/gtest.h>

#include <vector>

#include "qor/controls/layout/WindowPlacement.h"

namespace layout_test {

using qor::WindowPlacement;

TEST(WindowPlacementTest, TextFormRoundTripsAndRefusesAnythingElse) {
    const WindowPlacement placements[] = {{{100, 80, 740, 560}, false},
                                          {{-1920, -200, -10, 900}, true},
                                          {{0, 0, 1, 1}, false}};
    for (const WindowPlacement &p : placements) EXPECT_EQ(qor::ParsePlacement(qor::FormatPlacement(p)), p);
    EXPECT_EQ(qor::FormatPlacement({{100, 80, 740, 560}, true}), "100,80,740,560,1");
    EXPECT_EQ(qor::ParsePlacement(" 1, 2 ,30 , 40,0 "), (WindowPlacement{{1, 2, 30, 40}, false}));

    const char *const refused[] = {
        "",                      // nothing
        "1,2,30,40",             // a field missing
        "1,2,30,40,0,7",         // one too many
        "1,2,30,40,2",           // maximized neither 0 nor 1
        "1,2,30,40,",            // an empty field
        "1;2;30;40;0",           // other separators
        "1,2,x,40,0",            // not a number
        "1.5,2,30,40,0",         // not an integer
        "+1,2,30,40,0",          // no signs but minus
        "0x10,2,30,40,0",        // no hex
        "30,2,1,40,0",           // right before left
        "1,40,30,40,0",          // no height
        "1,2,30,2000000,0",      // beyond any screen
        "1,2,30,99999999999,0",  // beyond an int
        "1,2,30,\t40,0",         // only spaces pad
    };
    for (const char *text : refused) EXPECT_FALSE(qor::ParsePlacement(text)) << '"' << text << '"';
}

struct FitCase {
    const char *what;
    CRect saved;
    std::vector<CRect> screens;
    CRect expected;
};

const CRect kPrimary(0, 0, 1920, 1040);           // a work area above a task bar
const CRect kRightOfIt(1920, 0, 3200, 1024);      // a second monitor to its right
const CRect kLeftOfIt(-1280, -200, 0, 824);       // or to its left, higher up

const FitCase kFitCases[] = {
    {"inside a screen: as saved", {100, 100, 700, 500}, {kPrimary}, {100, 100, 700, 500}},
    {"on the second monitor: as saved", {2000, 100, 2600, 500}, {kPrimary, kRightOfIt}, {2000, 100, 2600, 500}},
    {"second monitor gone: nearest edge of the primary", {2000, 100, 2600, 500}, {kPrimary}, {1320, 100, 1920, 500}},
    {"far off to the top left: the corner of the primary", {-9000, -9000, -8400, -8600}, {kPrimary}, {0, 0, 600, 400}},
    {"below the task bar edge: pulled up", {100, 900, 700, 1300}, {kPrimary}, {100, 640, 700, 1040}},
    {"straddling: onto the screen it covers most", {1700, 100, 2300, 500}, {kPrimary, kRightOfIt}, {1920, 100, 2520, 500}},
    {"straddling the other way", {1500, 100, 2100, 500}, {kPrimary, kRightOfIt}, {1320, 100, 1920, 500}},
    {"larger than the screen: cut to it", {-50, -50, 2500, 1500}, {kPrimary}, {0, 0, 1920, 1040}},
    {"too big for its small screen: cut to that one", {-1300, -200, 100, 900}, {kPrimary, kLeftOfIt}, {-1280, -200, 0, 824}},
    {"left monitor gone: onto the primary", {-1200, -100, -600, 300}, {kPrimary}, {0, 0, 600, 400}},
    {"on no screen, nearer the right one", {1950, 1050, 2100, 1150}, {kPrimary, kRightOfIt}, {1950, 924, 2100, 1024}},
    {"equal overlap: the earlier screen", {1820, 100, 2020, 200}, {kPrimary, kRightOfIt}, {1720, 100, 1920, 200}},
    {"empty work areas are no screens", {5000, 5000, 5100, 5100}, {CRect(), kPrimary, CRect(10, 10, 10, 500)}, {1820, 940, 1920, 1040}},
    {"no screens at all: as saved", {5000, 5000, 5100, 5100}, {}, {5000, 5000, 5100, 5100}},
};

TEST(WindowPlacementTest, APlacementLandsWhollyOnOneOfTheScreensThereAreNow) {
    for (const FitCase &c : kFitCases) {
        for (bool maximized : {false, true}) {
            const WindowPlacement fitted = qor::FitPlacement({c.saved, maximized}, c.screens);
            EXPECT_EQ(fitted.normal, c.expected) << c.what;
            EXPECT_EQ(fitted.maximized, maximized) << c.what;
        }
    }
}

}  // namespace layout_test
