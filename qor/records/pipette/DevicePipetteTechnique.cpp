#include "qor/records/pipette/DevicePipetteTechnique.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(DevicePipetteTechnique,
    base<PipetteTechniques>(),
    attribute("DeviceName", &DevicePipetteTechnique::DeviceName).as("Device name"))

}  // namespace PipetteXMLMarshaller
