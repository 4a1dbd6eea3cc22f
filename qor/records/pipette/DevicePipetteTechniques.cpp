#include "qor/records/pipette/DevicePipetteTechniques.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(DevicePipetteTechniques,
    list("Techniques", &DevicePipetteTechniques::Techniques))

}  // namespace PipetteXMLMarshaller
