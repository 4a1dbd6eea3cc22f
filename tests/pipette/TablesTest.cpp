// The fixed tables of the pipetting family, row by row, and the readers of
// old head and selection forms.
#include <gtest/gtest.h>

#include "PipetteTestSupport.h"

namespace {

using namespace pipette_test;
using ObjectInstanceXMLMarshaller::Parameter;

TEST(HeadTables, EveryChannelTypeHasItsGridChannelsAndSpacing) {
    struct Row {
        int type, rows, columns, channels;
        double spacing;
    };
    constexpr int untouched = -7;
    const Row table[] = {
        {0, 8, 12, 96, 9.0},  {1, 16, 24, 384, 4.5}, {2, 8, 1, 8, 9.0},   {3, 1, 1, 8, 9.0},
        {4, 16, 1, 16, 4.5},  {5, 32, 1, 96, 2.25},  {6, 1, 12, 12, 9.0}, {7, 1, 24, 24, 4.5},
        {8, 1, 48, 48, 2.25}, {9, 32, 48, 1536, 9.0}, {10, untouched, untouched, 96, 9.0},
        {-1, untouched, untouched, 96, 9.0},
    };
    for (const Row &row : table) {
        SCOPED_TRACE(row.type);
        const auto type = static_cast<WellSelectionChannelsType>(row.type);
        int rows = untouched, columns = untouched;
        PipetteHeadMode::GetHeadRowColumnCount(type, rows, columns);
        EXPECT_EQ(rows, row.rows);
        EXPECT_EQ(columns, row.columns);
        EXPECT_EQ(PipetteHeadMode::GetNumberOfChannels(type), row.channels);
        EXPECT_EQ(PipetteHeadMode::GetBarrelSpacing(type), row.spacing);
    }
}

TEST(HeadTables, ChannelCountsLabelsAndPlateSizes) {
    const std::pair<int, int> toEnum[] = {{8, 2},  {12, 6}, {16, 4},  {24, 7},   {32, 5}, {48, 8},
                                          {384, 1}, {96, 0}, {1536, 0}, {1, 0}, {0, 0}, {-8, 0}};
    for (const auto &[channels, type] : toEnum) EXPECT_EQ(PipetteHeadMode::NumberOfChannelsToEnum(channels), type);

    const char *subsets[] = {"All barrels", "Full column", "Full row", "Partial row/column", "Single barrel", "", ""};
    const int subsetValues[] = {0, 1, 2, 3, 4, 5, -1};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(PipetteHeadMode::GetSubsetLabel(HeadSubsetType(subsetValues[i])), subsets[i]);
    }
    const char *orientations[] = {"Front right", "Back right", "Back left", "Front left", ""};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(PipetteHeadMode::GetOrientationLabel(HeadSubsetOrientation(i)), orientations[i]);
    }

    struct Plate {
        int wells, rows, columns;
        bool known;
    };
    const Plate plates[] = {{1, 1, 1, true},    {6, 2, 3, true},    {12, 3, 4, true},       {24, 4, 6, true},
                            {48, 6, 8, true},   {96, 8, 12, true},  {384, 16, 24, true},    {1536, 32, 48, true},
                            {3456, 48, 72, true}, {2, 0, 0, false}, {0, 0, 0, false}, {-96, 0, 0, false}};
    for (const Plate &plate : plates) {
        int rows = 0, columns = 0;
        EXPECT_EQ(PipetteHeadMode::WellCountToPlateDimensions(plate.wells, rows, columns), plate.known) << plate.wells;
        EXPECT_EQ(rows, plate.rows);
        EXPECT_EQ(columns, plate.columns);
    }
}

TEST(HeadTables, SpacingRatioOfEveryWholeHeadOnEveryPlate) {
    const int plates[] = {96, 384, 1536, 3456, 24, 1};
    // Per channel type, the ratio on each plate above; 0 is a failure.
    const int ratios[][6] = {
        {1, 2, 4, 6, 0, 0}, {0, 1, 2, 3, 0, 0}, {1, 2, 4, 6, 0, 0}, {1, 1, 1, 1, 1, 1}, {0, 1, 2, 3, 0, 0},
        {0, 0, 1, 0, 0, 0}, {1, 2, 4, 6, 0, 0}, {0, 1, 2, 3, 0, 0}, {0, 0, 1, 0, 0, 0}, {0, 0, 1, 0, 0, 0},
    };
    for (int type = 0; type < 10; ++type) {
        PipetteHeadMode mode;
        mode.Channels = WellSelectionChannelsType(type);
        mode.ResetHeadRowColumnCount();
        for (int p = 0; p < 6; ++p) {
            SCOPED_TRACE("channels " + std::to_string(type) + " on " + std::to_string(plates[p]));
            int ratio = 99;
            EXPECT_EQ(PipetteHeadMode::GetHeadWellSpacingRatio(mode, plates[p], ratio), ratios[type][p] != 0);
            EXPECT_EQ(ratio, ratios[type][p] ? ratios[type][p] : 1);
        }
    }
    // A single barrel goes anywhere, even on a plate of no known size; an
    // unknown head nowhere.
    int ratio = 0;
    EXPECT_TRUE(PipetteHeadMode::GetHeadWellSpacingRatio(Mode(CHANNELS_384, 1, 1), 7, ratio));
    EXPECT_FALSE(PipetteHeadMode::GetHeadWellSpacingRatio(Mode(WellSelectionChannelsType(10), 8, 12), 96, ratio));
}

TEST(HeadTables, TipBoxCompatibilityByTipTypeAndCapacity) {
    struct Row {
        int tipType, capacity;
        bool compatible;
    };
    const Row table[] = {
        {0, 0, true},   {0, 9, true},   {0, 10, true},  {0, 60, false}, {0, 200, false}, {0, 250, false},
        {0, 251, true}, {0, 30, true},  {1, 10, false}, {1, 30, false}, {1, 50, false},  {1, 70, false},
        {1, 60, true},  {1, 250, true}, {1, 9, true},   {1, -10, true}, {2, 60, true},   {-1, 10, true},
    };
    for (const Row &row : table) {
        EXPECT_EQ(PipetteHeadMode::AreHeadAndTipBoxCompatible(Mode(CHANNELS_96, 8, 12, HeadTipType(row.tipType)),
                                                              row.capacity),
                  row.compatible)
            << row.tipType << " " << row.capacity;
    }
}

TEST(HeadTables, LabwareCompatibilityAndItsReason) {
    struct Row {
        const char *what;
        PipetteHeadMode mode;
        int wells, capacity;
        bool allowSmall, compatible;
        int reason;
    };
    const Row table[] = {
        {"tip box refused", Mode(CHANNELS_96, 8, 12, HEAD_TIP_TYPE_1), 96, 10, true, false, 1},
        {"tip type 1 above 384 wells", Mode(CHANNELS_96, 8, 12, HEAD_TIP_TYPE_1), 1536, 0, true, false, 0},
        {"tip type 1 on 384 wells", Mode(CHANNELS_96, 8, 12, HEAD_TIP_TYPE_1), 384, 0, false, true, 0},
        {"single barrel on any plate", Mode(CHANNELS_96, 1, 1), 7, 0, false, true, 0},
        {"whole head at full density", Mode(CHANNELS_96, 8, 12), 96, 0, false, false, 0},
        {"the same, small plates allowed", Mode(CHANNELS_96, 8, 12), 96, 0, true, true, 0},
        {"a column needs no room twice its width", Mode(CHANNELS_96, 8, 1), 96, 0, false, true, 0},
        {"no ratio", Mode(CHANNELS_384, 16, 24), 96, 0, true, false, 0},
        {"unknown plate", Mode(CHANNELS_96, 8, 12), 100, 0, true, false, 0},
        {"more rows than the plate", Mode(CHANNELS_96, 9, 12), 96, 0, true, false, 0},
        {"1536 head on 1536", Mode(CHANNELS_1536, 32, 48), 1536, 0, true, true, 0},
    };
    for (const Row &row : table) {
        int reason = -1;
        EXPECT_EQ(
            PipetteHeadMode::AreHeadAndLabwareCompatible(row.mode, row.wells, row.capacity, reason, row.allowSmall),
            row.compatible)
            << row.what;
        EXPECT_EQ(reason, row.reason) << row.what;
    }
}

TEST(HeadSubsets, ResetFollowsTheChannelsAndTheSubset) {
    struct Row {
        int channels, subset, rows, columns, wantRows, wantColumns;
    };
    const Row table[] = {
        {0, 0, 3, 4, 8, 12},  {0, 4, 3, 4, 1, 1},   {0, 1, 3, 4, 8, 4},    {0, 2, 3, 4, 3, 12},
        {0, 3, 20, 5, 8, 5},  {1, 3, 20, 30, 16, 24}, {3, 0, 5, 5, 1, 1},  {9, 2, 40, 1, 32, 48},
        {0, 9, 3, 20, 3, 12}, {42, 0, 5, 7, 5, 7},  {42, 4, 5, 7, 1, 1},
    };
    for (const Row &row : table) {
        PipetteHeadMode mode = Mode(WellSelectionChannelsType(row.channels), row.rows, row.columns);
        mode.SubsetType = HeadSubsetType(row.subset);
        mode.ResetHeadRowColumnCount();
        EXPECT_EQ(mode.RowCount, row.wantRows) << row.channels << "/" << row.subset;
        EXPECT_EQ(mode.ColumnCount, row.wantColumns) << row.channels << "/" << row.subset;
    }
    EXPECT_TRUE(PipetteHeadMode::IsAllBarrels(Mode(CHANNELS_384, 16, 24)));
    EXPECT_FALSE(PipetteHeadMode::IsAllBarrels(Mode(CHANNELS_384, 8, 12)));
    EXPECT_FALSE(PipetteHeadMode::IsAllBarrels(Mode(WellSelectionChannelsType(42), 8, 12)));
    EXPECT_TRUE(PipetteHeadMode::IsSingleBarrel(Mode(CHANNELS_1536, 1, 1)));
    EXPECT_FALSE(PipetteHeadMode::IsSingleBarrel(Mode(CHANNELS_1, 1, 2)));
}

TEST(HeadSubsets, OrientationMirrorsFromTheBackLeft) {
    struct Row {
        int orientation, channels, rows, columns, wantRows, wantColumns;
    };
    const Row table[] = {
        {2, 0, 1, 1, 1, 1}, {0, 0, 1, 1, 8, 12}, {3, 0, 1, 1, 8, 1}, {1, 0, 1, 1, 1, 12},
        {0, 1, 2, 3, 15, 22}, {7, 0, 2, 3, 2, 3}, {0, 42, 2, 3, 2, 3},
    };
    for (const Row &row : table) {
        int rows = row.rows, columns = row.columns;
        PipetteHeadMode::OrientHeadRowColumnCount(HeadSubsetOrientation(row.orientation),
                                                  WellSelectionChannelsType(row.channels), rows, columns);
        EXPECT_EQ(rows, row.wantRows) << row.orientation;
        EXPECT_EQ(columns, row.wantColumns) << row.orientation;
    }
}

Parameter ParameterOf(ObjectInstanceXMLMarshaller::ParameterType type, std::string value) {
    Parameter parameter;
    parameter.Type = type;
    parameter.Value = std::move(value);
    return parameter;
}

TEST(OldForms, HeadModeSubsetTexts) {
    PipetteHeadMode stored = Mode(CHANNELS_384, 5, 5);
    const Parameter headMode = ParameterOf(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_PIPETTE_HEAD_MODE,
                                           stored.ToXMLString());
    struct Row {
        const char *text;
        bool upgraded;
        int subset, rows, columns;
    };
    const Row table[] = {
        {"Use all barrels on head", true, 0, 16, 24},
        {"Use last column of barrels on head", true, 1, 16, 1},
        {"Use last row of barrels on head", true, 2, 1, 24},
        {"Use all barrels on head ", false, 0, 0, 0},
    };
    for (const Row &row : table) {
        std::string upgraded = "untouched";
        ASSERT_EQ(PipetteHeadMode::IsHeadModeUpgraded(headMode, row.text, upgraded), row.upgraded) << row.text;
        if (!row.upgraded) {
            EXPECT_EQ(upgraded, "untouched");
            continue;
        }
        const PipetteHeadMode mode(upgraded);
        EXPECT_EQ(mode.Channels, CHANNELS_384);
        EXPECT_EQ(mode.SubsetType, row.subset) << row.text;
        EXPECT_EQ(mode.RowCount, row.rows) << row.text;
        EXPECT_EQ(mode.ColumnCount, row.columns) << row.text;
    }
    std::string upgraded;
    EXPECT_FALSE(PipetteHeadMode::IsHeadModeUpgraded(
        ParameterOf(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_STRING, stored.ToXMLString()),
        "Use all barrels on head", upgraded));
    EXPECT_THROW(PipetteHeadMode::IsHeadModeUpgraded(
                     ParameterOf(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_PIPETTE_HEAD_MODE, "not a document"),
                     "Use all barrels on head", upgraded),
                 XMLParserException);
}

TEST(OldForms, HeadsWithChannelsOnTheHeadItself) {
    struct Row {
        const char *channels;  // nullptr: no attribute
        const char *name;
        bool upgraded;
        int wantChannels, subset, rows, columns;
    };
    const Row table[] = {
        {nullptr, "", false, 0, 0, 8, 12},   {"2", "Head", true, 0, 1, 8, 1},     {"2", "Vq7", true, 2, 0, 8, 1},
        {"4", "Head", true, 1, 1, 16, 1},    {"4", "Zr4Q", true, 4, 0, 16, 1},    {"4", "Vq7", true, 1, 1, 16, 1},
        {"6", "Head", true, 0, 2, 1, 12},    {"7", "Zr4Q", true, 1, 2, 1, 24},    {"9", "Head", true, 9, 0, 32, 48},
        {"5", "Head", true, 5, 0, 32, 1},    {"junk", "Head", true, 0, 0, 8, 12},
    };
    for (const Row &row : table) {
        SCOPED_TRACE(std::string(row.channels ? row.channels : "none") + " " + row.name);
        XMLParser::XMLNode node;
        if (row.channels) node.attributes["Channels"] = row.channels;
        PipetteHead head;
        head.Name = row.name;
        EXPECT_EQ(PipetteHead::IsHeadUpgraded(node, head), row.upgraded);
        const PipetteHeadMode &mode = head.PipetteHeadMode;
        EXPECT_EQ(mode.Channels, row.wantChannels);
        EXPECT_EQ(mode.SubsetType, row.subset);
        EXPECT_EQ(mode.RowCount, row.rows);
        EXPECT_EQ(mode.ColumnCount, row.columns);
    }
}

TEST(OldForms, SelectionsOfChannelsAndQuadrants) {
    WellSelection stored;
    stored.Wells = Wells({{5, 5}});
    stored.LinkedText = "kept";
    const Parameter selection =
        ParameterOf(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT, stored.ToXMLString());
    const std::string old = "<?xml version='1.0' ?><Old><Channels Value='1' /><Quadrant Row='0' Column='1' />"
                            "<Other /><Quadrant Row='1' Column='1' /></Old>";
    std::string upgraded;
    ASSERT_TRUE(WellSelection::IsWellSelectionUpgraded(selection, old, upgraded));
    const WellSelection read(upgraded);
    EXPECT_EQ(Text(read.Wells), "(0,1)(1,1)");
    EXPECT_EQ(read.LinkedText, "kept");
    EXPECT_EQ(read.PipetteHeadMode, Mode(CHANNELS_384, 16, 24));

    upgraded = "untouched";
    EXPECT_FALSE(WellSelection::IsWellSelectionUpgraded(
        selection, "<?xml version='1.0' ?><Old><Channels Value='1' /></Old>", upgraded));
    EXPECT_FALSE(WellSelection::IsWellSelectionUpgraded(
        ParameterOf(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_STRING, stored.ToXMLString()), old, upgraded));
    EXPECT_EQ(upgraded, "untouched");
}

TEST(TransferTables, TaskBitsBuiltInTasksAndVolumeUnits) {
    struct Row {
        int type;
        bool fluid, head, pump, tip, wash;
    };
    const Row table[] = {
        {0, false, false, false, false, false},   {1024, false, false, false, false, false},
        {0x200, false, true, false, false, false}, {0x800, false, false, true, false, false},
        {0x80, false, false, false, true, false},  {0x100, false, false, false, false, true},
        {0x40000, true, false, true, false, true}, {0x10000, false, false, false, true, false},
        {0x8, true, false, true, false, true},      {-1, true, true, true, true, true},
    };
    for (const Row &row : table) {
        const auto type = PipetteTaskType(row.type);
        EXPECT_EQ(PipetteTaskQuery::IsFluidTask(type), row.fluid) << row.type;
        EXPECT_EQ(PipetteTaskQuery::IsHeadTask(type), row.head) << row.type;
        EXPECT_EQ(PipetteTaskQuery::IsPumpTask(type), row.pump) << row.type;
        EXPECT_EQ(PipetteTaskQuery::IsTipTask(type), row.tip) << row.type;
        EXPECT_EQ(PipetteTaskQuery::IsWashTask(type), row.wash) << row.type;
    }
    for (const char *name : {"Serial Dilution", "Fill Plate", "Hit Pick Replication", "Dilute To Final Volume"}) {
        EXPECT_TRUE(PipetteWizardQuery::IsBuiltInPipetteTask(name)) << name;
    }
    for (const char *name : {"fill plate", "Fill Plate ", ""})
        EXPECT_FALSE(PipetteWizardQuery::IsBuiltInPipetteTask(name));
    EXPECT_EQ(CherryPickData::GetVolumeUnitMultiplier(VOLUME_UNITS_NANOLITRES), 1000.0);
    EXPECT_EQ(CherryPickData::GetVolumeUnitMultiplier(PipettorVolumeUnits(0)), 1.0);
    EXPECT_EQ(CherryPickData::GetVolumeUnitString(VOLUME_UNITS_NANOLITRES), "nL");
    EXPECT_EQ(CherryPickData::GetVolumeUnitString(PipettorVolumeUnits(7)), "\xB5L");
}

}  // namespace
