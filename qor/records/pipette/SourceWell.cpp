#include "qor/records/pipette/SourceWell.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(SourceWell, base<Well>())

}  // namespace PipetteXMLMarshaller
