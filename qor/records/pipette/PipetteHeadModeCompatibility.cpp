// Whether a head mode goes with a tip box and with a plate.
#include <algorithm>
#include <iterator>

#include "qor/records/pipette/PipetteHeadMode.h"

namespace PipetteXMLMarshaller {
namespace {

// The capacities each tip type can't pick up; capacities outside 10 to 250
// suit every head.
constexpr int kTipType0Refuses[] = {60, 200, 250};
constexpr int kTipType1Refuses[] = {10, 30, 50, 70};
constexpr int kSmallestCheckedCapacity = 10;
constexpr int kLargestCheckedCapacity = 250;

template <std::size_t N>
bool Refuses(const int (&capacities)[N], int capacity) {
    return std::find(std::begin(capacities), std::end(capacities), capacity) != std::end(capacities);
}

// Tips of type 1 don't go with plates above this many wells.
constexpr int kTipType1MostWells = 384;

}  // namespace

bool PipetteHeadMode::AreHeadAndTipBoxCompatible(const PipetteHeadMode &mode, int tipCapacity) {
    if (tipCapacity < kSmallestCheckedCapacity || tipCapacity > kLargestCheckedCapacity) return true;
    switch (mode.TipType) {
    case HEAD_TIP_TYPE_0: return !Refuses(kTipType0Refuses, tipCapacity);
    case HEAD_TIP_TYPE_1: return !Refuses(kTipType1Refuses, tipCapacity);
    default: return true;
    }
}

bool PipetteHeadMode::AreHeadAndLabwareCompatible(const PipetteHeadMode &mode, int wells, int tipCapacity,
                                                  int &reason, bool allowSmallPlate) {
    reason = 0;
    if (!AreHeadAndTipBoxCompatible(mode, tipCapacity)) {
        reason = 1;
        return false;
    }
    if (mode.TipType == HEAD_TIP_TYPE_1 && wells > kTipType1MostWells) return false;
    if (IsSingleBarrel(mode)) return true;
    int rows = 0, columns = 0, ratio = 1;
    if (!WellCountToPlateDimensions(wells, rows, columns) || !GetHeadWellSpacingRatio(mode, wells, ratio) ||
        ratio <= 0) {
        return false;
    }
    // The head's extent in wells.
    const long long headRows = static_cast<long long>(mode.RowCount) * ratio;
    const long long headColumns = static_cast<long long>(mode.ColumnCount) * ratio;
    if (headRows > rows || headColumns > columns) return false;
    // A head at full density on a plate less than twice its size both ways
    // is refused unless small plates are allowed.
    if (ratio == 1 && !allowSmallPlate && rows < 2 * headRows && columns < 2 * headColumns) return false;
    return true;
}

}  // namespace PipetteXMLMarshaller
