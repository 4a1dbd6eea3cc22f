#include "qor/records/pipette/CherryPickTransfer.h"

#include "qor/records/pipette/WellTransferTable.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(CherryPickTransfer, WellTransferTable())

}  // namespace PipetteXMLMarshaller
