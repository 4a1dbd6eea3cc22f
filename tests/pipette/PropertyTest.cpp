// Random head modes, plates and selections against the rules as they are
// told: ordered sets and vectors of wells, built from the library's own
// base-well and extended-set functions, which the table tests pin down.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "PipetteTestSupport.h"

namespace {

using namespace pipette_test;

void LiteralSortAndCull(std::vector<Well> &wells) {
    std::sort(wells.begin(), wells.end());
    wells.erase(std::unique(wells.begin(), wells.end()), wells.end());
}

void LiteralValidate(const PipetteHeadMode &mode, int plate, const std::vector<Well> &wanted,
                     std::vector<Well> &valid) {
    std::set<Well> covered;
    for (const Well &well : wanted) {
        Well base;
        if (!PipetteHeadMode::GetBaseSelectionWell(mode, plate, well, base)) continue;
        if (std::find(valid.begin(), valid.end(), base) != valid.end() || covered.count(base)) continue;
        std::vector<Well> extended;
        if (!PipetteHeadMode::GetExtendedSetFromBaseWell(mode, plate, base, extended)) continue;
        covered.insert(extended.begin(), extended.end());
        valid.push_back(base);
    }
    std::sort(valid.begin(), valid.end());
}

bool LiteralPerfect(const PipetteHeadMode &mode, int plate, std::vector<Well> set) {
    if (set.empty()) return true;
    LiteralSortAndCull(set);
    int ratio = 1;
    PipetteHeadMode::GetHeadWellSpacingRatio(mode, plate, ratio);
    std::vector<Well> expansion;
    for (const Well &well : set) {
        if (std::find(expansion.begin(), expansion.end(), well) != expansion.end()) continue;
        for (int j = 0; j < mode.ColumnCount; ++j) {
            for (int i = 0; i < mode.RowCount; ++i)
                expansion.emplace_back(well.Row + i * ratio, well.Column + j * ratio);
        }
    }
    LiteralSortAndCull(expansion);
    return expansion == set;
}

void LiteralSingleBarrel(TipBoxState &box) {
    std::vector<TipPosition> byState(4);
    for (int state = 0; state < 4; ++state) byState[state].State = TipPositionState(state);
    for (const TipPosition &position : box.TipPositions) {
        TipPosition &chosen = byState[position.State >= 0 && position.State <= 2 ? position.State : 3];
        for (const Well &well : position.Wells) {
            std::vector<Well> extended;
            if (!PipetteHeadMode::GetExtendedSetFromBaseWell(box.PipetteHeadMode, box.NumWells, well, extended))
                continue;
            chosen.Wells.insert(chosen.Wells.end(), extended.begin(), extended.end());
        }
    }
    for (TipPosition &position : byState) LiteralSortAndCull(position.Wells);
    box.TipPositions = {byState[0], byState[1]};
    box.PipetteHeadMode.SubsetType = SUBSET_SINGLE_BARREL;
    box.PipetteHeadMode.RowCount = box.PipetteHeadMode.ColumnCount = 1;
}

class RandomPlates : public testing::Test {
protected:
    int Between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    // Whole grids and their subsets mostly, odd counts and unknown types too.
    PipetteHeadMode AnyMode() {
        PipetteHeadMode mode;
        mode.Channels = WellSelectionChannelsType(Between(-1, 10));
        mode.SubsetType = HeadSubsetType(Between(0, 4));
        mode.TipType = HeadTipType(Between(0, 1));
        mode.ResetHeadRowColumnCount();
        if (Between(0, 3) == 0) {
            mode.RowCount = Between(-1, 5);
            mode.ColumnCount = Between(-1, 5);
        }
        return mode;
    }
    int AnyPlate() {
        constexpr int plates[] = {96, 384, 1536, 3456, 24, 1, 100};
        return plates[Between(0, 6)];
    }
    // Wells on the plate and just off it, sparse or dense.
    std::vector<Well> AnyWells(int plate, int most = 60) {
        int rows = 20, columns = 20;
        PipetteHeadMode::WellCountToPlateDimensions(plate, rows, columns);
        std::vector<Well> wells;
        const int count = Between(0, most);
        for (int i = 0; i < count; ++i) wells.emplace_back(Between(-2, rows + 1), Between(-2, columns + 1));
        return wells;
    }

    std::mt19937 random_{20240611};
};

TEST_F(RandomPlates, ValidateSelectionEqualsTheRuleOnOrderedSets) {
    for (int run = 0; run < 1000; ++run) {
        const PipetteHeadMode mode = AnyMode();
        const int plate = AnyPlate();
        const std::vector<Well> wanted = AnyWells(plate, Between(0, 1) ? 40 : 500);
        const std::vector<Well> held = AnyWells(plate, 3);
        std::vector<Well> valid = held, literal = held;
        PipetteHeadMode::ValidateSelection(mode, plate, wanted, valid);
        LiteralValidate(mode, plate, wanted, literal);
        ASSERT_EQ(Text(valid), Text(literal)) << mode.ToXMLString() << plate << " " << Text(wanted);
    }
}

TEST_F(RandomPlates, IsSetPerfectEqualsTheRuleOnVectors) {
    for (int run = 0; run < 1500; ++run) {
        const PipetteHeadMode mode = AnyMode();
        const int plate = AnyPlate();
        std::vector<Well> set;
        if (Between(0, 1)) {
            // Whole head positions, so that perfect sets come up too.
            for (const Well &base : AnyWells(plate, 3)) {
                std::vector<Well> extended;
                PipetteHeadMode::GetExtendedSetFromBaseWell(mode, plate, base, extended);
                set.insert(set.end(), extended.begin(), extended.end());
            }
        } else {
            set = AnyWells(plate, 12);
        }
        ASSERT_EQ(PipetteHeadMode::IsSetPerfect(mode, plate, set), LiteralPerfect(mode, plate, set))
            << mode.ToXMLString() << plate << " " << Text(set);
    }
}

TEST_F(RandomPlates, SingleBarrelConversionEqualsTheRuleAndIsIdempotent) {
    for (int run = 0; run < 500; ++run) {
        TipBoxState box;
        box.PipetteHeadMode = AnyMode();
        box.NumWells = AnyPlate();
        for (int i = Between(0, 5); i > 0; --i) {
            TipPosition &position = box.TipPositions.emplace_back();
            position.State = TipPositionState(Between(-1, 5));
            position.Wells = AnyWells(box.NumWells, 8);
        }
        TipBoxState converted = box, literal = box;
        converted.ConvertToSingleBarrelHeadMode();
        LiteralSingleBarrel(literal);
        ASSERT_EQ(converted, literal) << box.ToXMLString();
        TipBoxState again = converted;
        again.ConvertToSingleBarrelHeadMode();
        ASSERT_EQ(again, converted);
    }
}

TEST_F(RandomPlates, EveryWellOfAFittingHeadIsReachedByAWholeHeadFromItsBaseInTheSmallestUniqueSet) {
    int checked = 0;
    for (int run = 0; run < 400; ++run) {
        const PipetteHeadMode mode = AnyMode();
        const int plate = AnyPlate();
        int reason = 0, rows = 0, columns = 0;
        if (mode.RowCount < 1 || mode.ColumnCount < 1 ||
            !PipetteHeadMode::WellCountToPlateDimensions(plate, rows, columns) ||
            !PipetteHeadMode::AreHeadAndLabwareCompatible(mode, plate, 0, reason, true)) {
            continue;
        }
        std::vector<Well> unique;
        ASSERT_TRUE(PipetteHeadMode::GetSmallestUniqueSet(mode, plate, unique));
        for (int i = 0; i < 20; ++i) {
            const Well well(Between(0, rows - 1), Between(0, columns - 1));
            Well base;
            std::vector<Well> extended;
            ASSERT_TRUE(PipetteHeadMode::GetBaseSelectionWell(mode, plate, well, base));
            ASSERT_TRUE(std::binary_search(unique.begin(), unique.end(), base)) << Text({base});
            ASSERT_TRUE(PipetteHeadMode::GetExtendedSetFromBaseWell(mode, plate, base, extended));
            ASSERT_EQ(extended.size(), static_cast<std::size_t>(mode.RowCount * mode.ColumnCount));
            ASSERT_TRUE(std::find(extended.begin(), extended.end(), well) != extended.end());
            ASSERT_TRUE(PipetteHeadMode::IsSetPerfect(mode, plate, extended));
            ++checked;
        }
    }
    EXPECT_GT(checked, 1000);
}

TEST_F(RandomPlates, SortAndCullEqualsSortThenUnique) {
    for (int run = 0; run < 1000; ++run) {
        std::vector<Well> wells = AnyWells(AnyPlate(), 100);
        if (Between(0, 4) == 0) wells.emplace_back(Between(INT32_MIN, INT32_MAX), Between(INT32_MIN, INT32_MAX));
        std::vector<Well> literal = wells;
        Well::SortAndCullWells(wells);
        LiteralSortAndCull(literal);
        ASSERT_EQ(Text(wells), Text(literal));
    }
}

}  // namespace
