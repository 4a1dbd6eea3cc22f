// The fields of a transfer between two wells: CherryPickTransfer and
// LiquidTransferPair derive from this plain struct as well as from the
// family base, and differ in their element names alone.
#pragma once

#include "qor/records/pipette/DestinationWell.h"
#include "qor/records/pipette/SourceWell.h"

namespace PipetteXMLMarshaller {

struct WellTransferFields {
    PipetteXMLMarshaller::SourceWell SourceWell;
    PipetteXMLMarshaller::DestinationWell DestinationWell;
    double Volume = 0.0;
};

}  // namespace PipetteXMLMarshaller
