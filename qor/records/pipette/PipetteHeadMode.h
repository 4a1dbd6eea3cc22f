// Which barrels of a pipette head are in use, and the geometry that ties a
// head to a plate: which wells a head position reaches, which positions are
// distinct, and whether a head suits a tip box or a plate.
//
// Geometry is counted in wells. A plate with more wells than the head has
// barrels is reached in several positions; the spacing ratio is the number
// of wells from one barrel to the next. Plates are known by their well count
// (WellCountToPlateDimensions); a function that needs the plate's size fails
// for any other count. Functions answer by their result and may leave their
// outputs unset on failure, except GetHeadWellSpacingRatio, which gives 1.
//
// A Channels value outside the table has no known grid: it never bounds the
// counts (ResetHeadRowColumnCount keeps them), a mode on it is never "all
// barrels", and orienting on it changes nothing.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/HeadModeTypes.h"
#include "qor/records/pipette/Well.h"

namespace ObjectInstanceXMLMarshaller {
class Parameter;
}

namespace PipetteXMLMarshaller {

// Channels names the head's whole grid; RowCount and ColumnCount the part in
// use. A new mode is the whole of a 96-channel head. operator== ignores TipType.
class PipetteHeadMode : public PipetteXMLMarshallerBase {
    QOR_RECORD(PipetteHeadMode)
    WellSelectionChannelsType Channels = CHANNELS_96;
    int RowCount = 8;
    int ColumnCount = 12;
    HeadSubsetType SubsetType = SUBSET_ALL_BARRELS;
    HeadSubsetOrientation SubsetConfig = ORIENTATION_FRONT_RIGHT;
    HeadTipType TipType = HEAD_TIP_TYPE_0;

    // ---- the head tables

    // The whole grid; an unknown value leaves rows and columns untouched.
    static void GetHeadRowColumnCount(WellSelectionChannelsType channels, int &rows, int &columns);
    // 96 for every value the table doesn't count otherwise.
    static int GetNumberOfChannels(WellSelectionChannelsType channels);
    // 9.0 for an unknown value.
    static double GetBarrelSpacing(WellSelectionChannelsType channels);
    // 8, 12, 16, 24, 32, 48 and 384 have a type of their own; all else is 0.
    static WellSelectionChannelsType NumberOfChannelsToEnum(int channels);
    // "" for a value without a label.
    static std::string GetSubsetLabel(HeadSubsetType subset);
    static std::string GetOrientationLabel(HeadSubsetOrientation orientation);

    static bool IsAllBarrels(const PipetteHeadMode &mode);    // the counts are the whole grid
    static bool IsSingleBarrel(const PipetteHeadMode &mode);  // both counts are 1

    void SetChannelsType(WellSelectionChannelsType channels) { Channels = channels; }
    void SetSubsetType(HeadSubsetType subset) { SubsetType = subset; }
    // Brings the counts back in line with Channels and SubsetType: limited to
    // the grid, then the whole grid (0), a full column (1), a full row (2),
    // as they are (3) or one barrel (4).
    void ResetHeadRowColumnCount();
    // Turns a 1-based position counted from the back-left corner into one
    // counted from orientation's corner of the grid of channels.
    static void OrientHeadRowColumnCount(HeadSubsetOrientation orientation, WellSelectionChannelsType channels,
                                         int &rows, int &columns);

    // ---- heads on plates

    // The rows and columns of a plate of 1, 6, 12, 24, 48, 96, 384, 1536 or 3456 wells.
    static bool WellCountToPlateDimensions(int wells, int &rows, int &columns);
    // Wells from one barrel to the next; false, with ratio 1, when the head
    // doesn't go with such a plate.
    static bool GetHeadWellSpacingRatio(const PipetteHeadMode &mode, int wells, int &ratio);
    static bool AreHeadAndTipBoxCompatible(const PipetteHeadMode &mode, int tipCapacity);
    // reason is 1 when the tip box is the obstacle, else 0.
    static bool AreHeadAndLabwareCompatible(const PipetteHeadMode &mode, int wells, int tipCapacity, int &reason,
                                            bool allowSmallPlate);

    // The position of the head's first barrel from which well is reached,
    // shifted back so that the head stays on the plate; false for a well
    // off the plate.
    static bool GetBaseSelectionWell(const PipetteHeadMode &mode, int wells, const Well &well, Well &base);
    // The wells the head touches from base, row by row.
    static bool GetExtendedSetFromBaseWell(const PipetteHeadMode &mode, int wells, const Well &base,
                                           std::vector<Well> &set);
    // Every base position, in steps of one well, from which the whole head
    // stays on the plate, row by row.
    static bool GetSmallestUniqueSet(const PipetteHeadMode &mode, int wells, std::vector<Well> &set);
    // GetSmallestUniqueSet, validated into set (which, as in
    // ValidateSelection, keeps what it held).
    static bool GetSmallestUniqueValidatedSet(const PipetteHeadMode &mode, int wells, std::vector<Well> &set);
    // Appends to valid the distinct head positions that reach the wanted
    // wells without overlap, then sorts valid. What valid held stays.
    static void ValidateSelection(const PipetteHeadMode &mode, int wells, const std::vector<Well> &wanted,
                                  std::vector<Well> &valid);
    // Whether set is exactly what the head touches when it starts from some
    // of its wells. An empty set is perfect.
    static bool IsSetPerfect(const PipetteHeadMode &mode, int wells, const std::vector<Well> &set);
    // The quadrant, counted from 1, in which well lies; the result is that
    // of the labware check (capacity 0, small plates allowed).
    static bool WellToQuadrant(const PipetteHeadMode &mode, int wells, const Well &well, int &quadrant);

    // Reads the subset choice of an older head-mode Parameter (type 22) as
    // this record. Throws XMLParserException when the Parameter's value
    // isn't a document.
    static bool IsHeadModeUpgraded(const ObjectInstanceXMLMarshaller::Parameter &parameter,
                                   const std::string &oldText, std::string &upgraded);
};

}  // namespace PipetteXMLMarshaller
