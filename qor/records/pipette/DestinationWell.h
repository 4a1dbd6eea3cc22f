// The well a transfer puts liquid into: a Well under an element name of its own.
#pragma once

#include "qor/records/pipette/Well.h"

namespace PipetteXMLMarshaller {

class DestinationWell : public Well {
    QOR_DERIVED_RECORD(DestinationWell)
    DestinationWell(int row, int column) : Well(row, column) {}
};

}  // namespace PipetteXMLMarshaller
