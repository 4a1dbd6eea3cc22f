// The state of one tip box: the head mode in use, one TipPosition per
// state, and the box's count of wells. The wells of each position are base
// wells of the head mode.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/PipetteHeadMode.h"
#include "qor/records/pipette/TipPosition.h"

namespace PipetteXMLMarshaller {

class TipBoxState : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipBoxState)
    PipetteXMLMarshaller::PipetteHeadMode PipetteHeadMode;
    std::vector<TipPosition> TipPositions;
    int NumWells = 96;

    // Rewrites the state for a single barrel: every base well becomes the
    // wells its head position touches, sorted and culled per state. Only the
    // states 0 and 1 are kept, in that order; wells of the states 2 and 3
    // leave the box state, as the scheduler expects. Base wells the head
    // can't place on the box are dropped.
    void ConvertToSingleBarrelHeadMode();
};

}  // namespace PipetteXMLMarshaller
