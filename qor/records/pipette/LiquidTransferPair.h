// A transfer between two wells, with its volume.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/pipette/WellTransferFields.h"

namespace PipetteXMLMarshaller {

class LiquidTransferPair : public PipetteXMLMarshallerBase, public WellTransferFields {
    QOR_RECORD(LiquidTransferPair)
};

}  // namespace PipetteXMLMarshaller
