#include "qor/records/pipette/DestinationWell.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(DestinationWell, base<Well>())

}  // namespace PipetteXMLMarshaller
