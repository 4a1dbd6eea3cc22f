// The barrels in use: how the counts follow the channel type and subset,
// where a subset stands on the grid, and the subset choices of old files.
#include <algorithm>
#include <string_view>

#include "qor/marshal/Parameter.h"
#include "qor/records/pipette/HeadGeometry.h"
#include "qor/records/pipette/PipetteHeadMode.h"

namespace PipetteXMLMarshaller {
namespace {

// The old subset choices, as they stood in a head mode Parameter's text.
enum class OldSubset { AllBarrels, LastColumn, LastRow };

struct OldSubsetText {
    std::string_view text;
    OldSubset subset;
};

constexpr OldSubsetText kOldSubsetTexts[] = {
    {"Use all barrels on head", OldSubset::AllBarrels},
    {"Use last column of barrels on head", OldSubset::LastColumn},
    {"Use last row of barrels on head", OldSubset::LastRow},
};

}  // namespace

bool PipetteHeadMode::IsAllBarrels(const PipetteHeadMode &mode) {
    int rows = 0, columns = 0;
    return qor::pipette::FullGrid(mode.Channels, rows, columns) && mode.RowCount == rows &&
           mode.ColumnCount == columns;
}

bool PipetteHeadMode::IsSingleBarrel(const PipetteHeadMode &mode) {
    return mode.RowCount == 1 && mode.ColumnCount == 1;
}

void PipetteHeadMode::ResetHeadRowColumnCount() {
    int rows = RowCount, columns = ColumnCount;  // an unknown grid bounds nothing
    qor::pipette::FullGrid(Channels, rows, columns);
    RowCount = std::min(RowCount, rows);
    ColumnCount = std::min(ColumnCount, columns);
    switch (SubsetType) {
    case SUBSET_ALL_BARRELS:
        RowCount = rows;
        ColumnCount = columns;
        break;
    case SUBSET_SINGLE_BARREL: RowCount = ColumnCount = 1; break;
    case SUBSET_FULL_COLUMN: RowCount = rows; break;
    case SUBSET_FULL_ROW: ColumnCount = columns; break;
    default: break;  // a partial row or column keeps its counts
    }
}

void PipetteHeadMode::OrientHeadRowColumnCount(HeadSubsetOrientation orientation, WellSelectionChannelsType channels,
                                               int &rows, int &columns) {
    int gridRows = 0, gridColumns = 0;
    if (!qor::pipette::FullGrid(channels, gridRows, gridColumns)) return;
    // Positions are counted from the back left; the front mirrors the rows,
    // the right the columns.
    const bool front = orientation == ORIENTATION_FRONT_RIGHT || orientation == ORIENTATION_FRONT_LEFT;
    const bool right = orientation == ORIENTATION_FRONT_RIGHT || orientation == ORIENTATION_BACK_RIGHT;
    if (front) rows = gridRows - rows + 1;
    if (right) columns = gridColumns - columns + 1;
}

bool PipetteHeadMode::IsHeadModeUpgraded(const ObjectInstanceXMLMarshaller::Parameter &parameter,
                                         const std::string &oldText, std::string &upgraded) {
    if (parameter.Type != ObjectInstanceXMLMarshaller::PARAMETER_TYPE_PIPETTE_HEAD_MODE) return false;
    PipetteHeadMode mode(parameter.Value);
    const auto *old = std::find_if(std::begin(kOldSubsetTexts), std::end(kOldSubsetTexts),
                                   [&](const OldSubsetText &entry) { return entry.text == oldText; });
    if (old == std::end(kOldSubsetTexts)) return false;
    switch (old->subset) {
    case OldSubset::AllBarrels: mode.ResetHeadRowColumnCount(); break;
    case OldSubset::LastColumn: qor::pipette::BecomeLastLine(mode, SUBSET_FULL_COLUMN); break;
    case OldSubset::LastRow: qor::pipette::BecomeLastLine(mode, SUBSET_FULL_ROW); break;
    }
    upgraded = mode.ToXMLString();
    return true;
}

}  // namespace PipetteXMLMarshaller

void qor::pipette::BecomeLastLine(PipetteXMLMarshaller::PipetteHeadMode &mode,
                                  PipetteXMLMarshaller::HeadSubsetType line) {
    mode.SubsetType = line;
    mode.ResetHeadRowColumnCount();
    if (line == PipetteXMLMarshaller::SUBSET_FULL_COLUMN) mode.ColumnCount = 1;
    else mode.RowCount = 1;
}
