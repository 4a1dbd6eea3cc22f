#include "qor/records/pipette/CherryPickTransfers.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(CherryPickTransfers,
    list("CherryTransfers", &CherryPickTransfers::CherryTransfers))

}  // namespace PipetteXMLMarshaller
