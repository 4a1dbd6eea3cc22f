// A list of tip operations.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipChange.h"

namespace PipetteXMLMarshaller {

class TipChanges : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipChanges)
    std::vector<TipChange> TipChanges_;

    // Appends an operation of this type and capacity, all else at its default.
    void AddTipChange(TipChangeType type, double capacity);
};

}  // namespace PipetteXMLMarshaller
