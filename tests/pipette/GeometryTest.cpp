// A head on a plate: base wells, extended and smallest unique sets,
// validated selections, perfect sets and quadrants, on the corners and
// edges of 96, 384 and 1536-well plates, worked out by hand.
#include <gtest/gtest.h>

#include <climits>

#include "PipetteTestSupport.h"

namespace {

using namespace pipette_test;

const PipetteHeadMode kWhole96 = Mode(CHANNELS_96, 8, 12);
const PipetteHeadMode kColumnOf8 = Mode(CHANNELS_96, 8, 1);
const PipetteHeadMode kSingle = Mode(CHANNELS_96, 1, 1);

TEST(Geometry, BaseWellsOnCornersAndEdges) {
    struct Row {
        const char *what;
        PipetteHeadMode mode;
        int wells, row, column;
        bool found;
        int baseRow, baseColumn;
    };
    const Row table[] = {
        {"96: first corner", kWhole96, 96, 0, 0, true, 0, 0},
        {"96: last corner", kWhole96, 96, 7, 11, true, 0, 0},
        {"96: top right", kWhole96, 96, 0, 11, true, 0, 0},
        {"96: below the plate", kWhole96, 96, 8, 0, false, 0, 0},
        {"96: above the plate", kWhole96, 96, -1, 0, false, 0, 0},
        {"384: top right", kWhole96, 384, 0, 23, true, 0, 1},
        {"384: bottom left", kWhole96, 384, 15, 0, true, 1, 0},
        {"384: last corner", kWhole96, 384, 15, 23, true, 1, 1},
        {"384: inside, shifted back", kWhole96, 384, 2, 2, true, 0, 0},
        {"384: a base of its own", kWhole96, 384, 1, 1, true, 1, 1},
        {"384: right of the plate", kWhole96, 384, 0, 24, false, 0, 0},
        {"1536: last corner", kWhole96, 1536, 31, 47, true, 3, 3},
        {"1536: one head step in", kWhole96, 1536, 4, 4, true, 0, 0},
        {"1536: left edge", kWhole96, 1536, 31, 0, true, 3, 0},
        {"1536: a column reaches any column", kColumnOf8, 1536, 31, 47, true, 3, 47},
        {"1536: a single barrel is where it is", kSingle, 1536, 31, 47, true, 31, 47},
        {"a plate of no known size", kSingle, 100, 0, 0, false, 0, 0},
    };
    for (const Row &row : table) {
        Well base(-5, -5);
        EXPECT_EQ(PipetteHeadMode::GetBaseSelectionWell(row.mode, row.wells, Well(row.row, row.column), base),
                  row.found)
            << row.what;
        if (row.found) {
            EXPECT_EQ(base, Well(row.baseRow, row.baseColumn)) << row.what;
        }
    }
}

TEST(Geometry, ExtendedSetsStopAtThePlate) {
    struct Row {
        const char *what;
        PipetteHeadMode mode;
        int wells;
        Well base;
        bool found;
        std::vector<Well> set;
    };
    const Row table[] = {
        {"whole head, 384, second column", kWhole96, 384, Well(0, 1), true, Grid(0, 1, 8, 12, 2)},
        {"whole head, 96", kWhole96, 96, Well(0, 0), true, Grid(0, 0, 8, 12)},
        {"whole head a row down, 96", kWhole96, 96, Well(1, 0), true, Grid(1, 0, 7, 12)},
        {"whole head, 1536", kWhole96, 1536, Well(3, 3), true, Grid(3, 3, 8, 12, 4)},
        {"single barrel", kSingle, 96, Well(5, 5), true, Wells({{5, 5}})},
        {"base off the plate", kWhole96, 96, Well(-1, 0), true, {}},
        {"no counts", Mode(CHANNELS_96, 0, 12), 96, Well(0, 0), true, {}},
        {"unknown plate", kWhole96, 100, Well(0, 0), false, {}},
        {"no ratio", Mode(CHANNELS_384, 16, 24), 96, Well(0, 0), false, {}},
    };
    for (const Row &row : table) {
        std::vector<Well> set = Wells({{9, 9}});
        EXPECT_EQ(PipetteHeadMode::GetExtendedSetFromBaseWell(row.mode, row.wells, row.base, set), row.found)
            << row.what;
        EXPECT_EQ(Text(set), Text(row.set)) << row.what;
    }
}

TEST(Geometry, SmallestUniqueSetsOfEveryHeadShape) {
    struct Row {
        const char *what;
        PipetteHeadMode mode;
        int wells;
        bool found;
        std::vector<Well> set;
    };
    const Row table[] = {
        {"whole 96 on 96", kWhole96, 96, true, Wells({{0, 0}})},
        {"whole 96 on 384", kWhole96, 384, true, Grid(0, 0, 2, 2)},
        {"whole 96 on 1536", kWhole96, 1536, true, Grid(0, 0, 4, 4)},
        {"whole 384 on 1536", Mode(CHANNELS_384, 16, 24), 1536, true, Grid(0, 0, 2, 2)},
        {"whole 1536 on 1536", Mode(CHANNELS_1536, 32, 48), 1536, true, Wells({{0, 0}})},
        {"column of 8 on 96", kColumnOf8, 96, true, Grid(0, 0, 1, 12)},
        {"row of 12 on 96", Mode(CHANNELS_12, 1, 12), 96, true, Grid(0, 0, 8, 1)},
        {"single barrel on 96", kSingle, 96, true, Grid(0, 0, 8, 12)},
        {"no barrels stays on the plate", Mode(CHANNELS_96, -5, 1), 96, true, Grid(0, 0, 8, 12)},
        {"whole 384 on 96", Mode(CHANNELS_384, 16, 24), 96, false, {}},
    };
    for (const Row &row : table) {
        std::vector<Well> set = Wells({{9, 9}});
        EXPECT_EQ(PipetteHeadMode::GetSmallestUniqueSet(row.mode, row.wells, set), row.found) << row.what;
        EXPECT_EQ(Text(set), Text(row.set)) << row.what;
    }
    // The validated form keeps what its output held.
    std::vector<Well> set = Wells({{9, 9}});
    EXPECT_TRUE(PipetteHeadMode::GetSmallestUniqueValidatedSet(kWhole96, 384, set));
    EXPECT_EQ(Text(set), "(0,0)(0,1)(1,0)(1,1)(9,9)");
}

TEST(Geometry, ValidatedSelectionsEmptyFullAndOverlapping) {
    struct Row {
        const char *what;
        PipetteHeadMode mode;
        int wells;
        std::vector<Well> held, wanted, valid;
    };
    const Row table[] = {
        {"nothing wanted", kWhole96, 384, {}, {}, {}},
        {"full 384 plate", kWhole96, 384, {}, Grid(0, 0, 16, 24), Grid(0, 0, 2, 2)},
        {"full 1536 plate", kWhole96, 1536, {}, Grid(0, 0, 32, 48), Grid(0, 0, 4, 4)},
        {"full 96 plate", kWhole96, 96, {}, Grid(0, 0, 8, 12), Wells({{0, 0}})},
        {"full plate, single barrel", kSingle, 96, {}, Grid(0, 0, 8, 12), Grid(0, 0, 8, 12)},
        {"one column twice", kColumnOf8, 96, {}, Wells({{7, 11}, {3, 11}}), Wells({{0, 11}})},
        {"a base that's already chosen", kWhole96, 384, {}, Wells({{2, 2}, {0, 0}}), Wells({{0, 0}})},
        {"interleaved heads", kWhole96, 384, {}, Wells({{1, 1}, {2, 2}}), Wells({{0, 0}, {1, 1}})},
        {"a covered base", kSingle, 96, {}, Wells({{3, 3}, {3, 3}}), Wells({{3, 3}})},
        {"off the plate", kWhole96, 384, {}, Wells({{16, 0}, {0, -1}, {0, 0}}), Wells({{0, 0}})},
        {"what was held stays", kWhole96, 96, Wells({{5, 5}, {-3, -3}}), Wells({{0, 0}}),
         Wells({{-3, -3}, {0, 0}, {5, 5}})},
        {"a held base isn't chosen twice", kWhole96, 384, Wells({{1, 1}}), Wells({{15, 23}, {0, 0}}),
         Wells({{0, 0}, {1, 1}})},
        {"unknown plate: sorted only", kWhole96, 100, Wells({{2, 0}, {1, 0}}), Wells({{0, 0}}),
         Wells({{1, 0}, {2, 0}})},
    };
    for (const Row &row : table) {
        std::vector<Well> valid = row.held;
        PipetteHeadMode::ValidateSelection(row.mode, row.wells, row.wanted, valid);
        EXPECT_EQ(Text(valid), Text(row.valid)) << row.what;
    }
}

TEST(Geometry, PerfectSets) {
    std::vector<Well> withDuplicate = Grid(0, 1, 8, 12, 2);
    withDuplicate.push_back(withDuplicate.front());
    std::vector<Well> missingOne = Grid(0, 1, 8, 12, 2);
    missingOne.pop_back();
    std::vector<Well> withStray = Grid(0, 1, 8, 12, 2);
    withStray.emplace_back(1, 1);
    struct Row {
        const char *what;
        PipetteHeadMode mode;
        int wells;
        std::vector<Well> set;
        bool perfect;
    };
    const Row table[] = {
        {"empty", kWhole96, 384, {}, true},
        {"one head position", kWhole96, 384, Grid(0, 1, 8, 12, 2), true},
        {"one well short", kWhole96, 384, missingOne, false},
        {"a stray well", kWhole96, 384, withStray, false},
        {"repeats are culled", kWhole96, 384, withDuplicate, true},
        {"four interleaved positions", kWhole96, 384, Grid(0, 0, 16, 24), true},
        {"single barrel, any wells", kSingle, 96, Wells({{3, 4}, {100, 100}}), true},
        {"no barrels", Mode(CHANNELS_96, 0, 12), 96, Wells({{0, 0}}), false},
        {"more barrels than wells", Mode(CHANNELS_96, 1 << 30, 1 << 30), 96, Grid(0, 0, 3, 3), false},
        {"far off any plate", Mode(CHANNELS_96, 1, 2), 0, Wells({{1000000, 5}, {1000000, 6}}), true},
        {"at the end of int", Mode(CHANNELS_96, 1, 2), 0, Wells({{INT_MAX, INT_MAX - 1}, {INT_MAX, INT_MAX}}), true},
        {"past the end of int", Mode(CHANNELS_96, 2, 1), 0, Wells({{INT_MAX, 0}, {INT_MAX, 1}}), false},
    };
    for (const Row &row : table) {
        EXPECT_EQ(PipetteHeadMode::IsSetPerfect(row.mode, row.wells, row.set), row.perfect) << row.what;
    }
}

TEST(Geometry, QuadrantsOfWholeAndPartialHeads) {
    struct Row {
        const char *what;
        PipetteHeadMode mode;
        int wells, row, column;
        bool compatible;
        int quadrant;
    };
    const Row table[] = {
        {"384 first", kWhole96, 384, 0, 0, true, 1},     {"384 second", kWhole96, 384, 0, 1, true, 2},
        {"384 third", kWhole96, 384, 1, 0, true, 3},     {"384 fourth", kWhole96, 384, 1, 1, true, 4},
        {"1536 fourth", kWhole96, 1536, 0, 3, true, 4},  {"1536 fifth", kWhole96, 1536, 1, 0, true, 5},
        {"1536 last", kWhole96, 1536, 3, 3, true, 16},   {"96", kWhole96, 96, 0, 0, true, 1},
        {"a column counts wells", kColumnOf8, 96, 0, 5, true, 6},
        {"unknown plate: 12 columns", kWhole96, 100, 1, 2, false, 15},
        {"refused tips: the plate's columns", Mode(CHANNELS_96, 8, 12, HEAD_TIP_TYPE_1), 1536, 1, 2, false, 51},
    };
    for (const Row &row : table) {
        int quadrant = 0;
        EXPECT_EQ(PipetteHeadMode::WellToQuadrant(row.mode, row.wells, Well(row.row, row.column), quadrant),
                  row.compatible)
            << row.what;
        EXPECT_EQ(quadrant, row.quadrant) << row.what;
    }
}

TEST(Geometry, SortAndCullOrdersRowByRow) {
    EXPECT_TRUE(Well(2, 3) < Well(3, 0));
    EXPECT_FALSE(Well(3, 0) < Well(3, 0));
    const std::pair<std::vector<Well>, std::string> table[] = {
        {{}, ""},
        {Wells({{1, 2}, {0, 5}, {1, 2}}), "(0,5)(1,2)"},
        {Wells({{5, 0}, {-2000000000, 3}, {5, 0}, {2000000000, 1}}), "(-2000000000,3)(5,0)(2000000000,1)"},
    };
    for (const auto &[wells, sorted] : table) {
        std::vector<Well> culled = wells;
        Well::SortAndCullWells(culled);
        EXPECT_EQ(Text(culled), sorted);
    }
}

}  // namespace
