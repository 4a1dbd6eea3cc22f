// The wells of a tip box that are in one state.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/Well.h"

namespace PipetteXMLMarshaller {

// The four states a tip position can be in; their meanings are the
// scheduler's, not this library's.
enum TipPositionState : int {
    TIP_POSITION_STATE_0 = 0,
    TIP_POSITION_STATE_1 = 1,
    TIP_POSITION_STATE_2 = 2,
    TIP_POSITION_STATE_3 = 3,
};

class TipPosition : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipPosition)
    TipPositionState State = TIP_POSITION_STATE_3;
    std::vector<Well> Wells;
};

}  // namespace PipetteXMLMarshaller
