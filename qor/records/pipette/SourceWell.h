// The well a transfer takes liquid from: a Well under an element name of its own.
#pragma once

#include "qor/records/pipette/Well.h"

namespace PipetteXMLMarshaller {

class SourceWell : public Well {
    QOR_DERIVED_RECORD(SourceWell)
    SourceWell(int row, int column) : Well(row, column) {}
};

}  // namespace PipetteXMLMarshaller
