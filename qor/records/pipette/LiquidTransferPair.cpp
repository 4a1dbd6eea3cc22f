#include "qor/records/pipette/LiquidTransferPair.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(LiquidTransferPair,
    child("SourceWell", &LiquidTransferPair::SourceWell),
    child("DestinationWell", &LiquidTransferPair::DestinationWell),
    attribute("Volume", &LiquidTransferPair::Volume))

}  // namespace PipetteXMLMarshaller
