#include "qor/records/pipette/CherryPickTransfer.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(CherryPickTransfer,
    child("SourceWell", &CherryPickTransfer::SourceWell),
    child("DestinationWell", &CherryPickTransfer::DestinationWell),
    attribute("Volume", &CherryPickTransfer::Volume))

}  // namespace PipetteXMLMarshaller
