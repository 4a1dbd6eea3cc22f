#include "qor/records/pipette/LiquidTransferPair.h"

#include "qor/records/pipette/WellTransferTable.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(LiquidTransferPair, WellTransferTable())

}  // namespace PipetteXMLMarshaller
