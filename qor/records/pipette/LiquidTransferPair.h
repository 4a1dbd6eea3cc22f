// A transfer between two wells, with its volume.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/pipette/DestinationWell.h"
#include "qor/records/pipette/SourceWell.h"

namespace PipetteXMLMarshaller {

class LiquidTransferPair : public PipetteXMLMarshallerBase {
    QOR_RECORD(LiquidTransferPair)
    PipetteXMLMarshaller::SourceWell SourceWell;
    PipetteXMLMarshaller::DestinationWell DestinationWell;
    double Volume = 0.0;
};

}  // namespace PipetteXMLMarshaller
