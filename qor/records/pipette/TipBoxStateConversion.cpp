// A tip box state rewritten for a single barrel. The wells of one state are
// gathered as bits of the box, so the result is sorted and culled, and a
// state's work is bounded by the box's size however many wells it lists.
#include <algorithm>
#include <array>
#include <optional>

#include "qor/records/pipette/HeadGeometry.h"
#include "qor/records/pipette/TipBoxState.h"
#include "qor/records/pipette/WellBits.h"

namespace PipetteXMLMarshaller {

void TipBoxState::ConvertToSingleBarrelHeadMode() {
    qor::pipette::HeadOnPlate head;
    const bool placed = qor::pipette::PlaceHead(PipetteHeadMode, NumWells, head) && head.ratioKnown;
    // Only these states survive; the others are gathered by the rule but
    // dropped at the end, so they need no gathering here.
    constexpr std::array kKept{TIP_POSITION_STATE_0, TIP_POSITION_STATE_1};
    std::array<std::optional<qor::pipette::WellBits>, kKept.size()> gathered;
    if (placed) {
        for (auto &bits : gathered) bits.emplace(head.rows, head.columns);
        for (const TipPosition &position : TipPositions) {
            const auto kept = std::find(kKept.begin(), kKept.end(), position.State);
            if (kept == kKept.end()) continue;
            auto &bits = *gathered[static_cast<std::size_t>(kept - kKept.begin())];
            for (const Well &base : position.Wells) {
                head.ForEachTouched(base.Row, base.Column, [&](int row, int column) { bits.Set(row, column); });
            }
        }
    }
    // The first two records take the result, so their lists are reused.
    TipPositions.resize(kKept.size());
    for (std::size_t i = 0; i < kKept.size(); ++i) {
        TipPosition &position = TipPositions[i];
        position.State = kKept[i];
        if (gathered[i]) {
            gathered[i]->AssignTo(position.Wells);
        } else {
            position.Wells.clear();
        }
    }
    // Limiting the counts to the grid first, as the rule has it, changes
    // nothing once both are 1.
    PipetteHeadMode.SubsetType = SUBSET_SINGLE_BARREL;
    PipetteHeadMode.RowCount = PipetteHeadMode.ColumnCount = 1;
}

}  // namespace PipetteXMLMarshaller
