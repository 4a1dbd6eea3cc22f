#include "qor/records/pipette/LiquidTransferCompleteUpdate.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(LiquidTransferCompleteUpdate,
    attribute("SourceLocation", &LiquidTransferCompleteUpdate::SourceLocation),
    attribute("DestLocation", &LiquidTransferCompleteUpdate::DestLocation),
    list("WellsAndVolumes", &LiquidTransferCompleteUpdate::WellsAndVolumes),
    child("PipetteHeadMode", &LiquidTransferCompleteUpdate::PipetteHeadMode))

}  // namespace PipetteXMLMarshaller
