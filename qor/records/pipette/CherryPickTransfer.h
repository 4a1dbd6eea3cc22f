// One hit-pick transfer from a source well to a destination well.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/pipette/WellTransferFields.h"

namespace PipetteXMLMarshaller {

class CherryPickTransfer : public PipetteXMLMarshallerBase, public WellTransferFields {
    QOR_RECORD(CherryPickTransfer)
};

}  // namespace PipetteXMLMarshaller
