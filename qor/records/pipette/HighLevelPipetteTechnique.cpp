#include "qor/records/pipette/HighLevelPipetteTechnique.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(HighLevelPipetteTechnique,
    base<ObjectInstanceXMLMarshaller::ObjectParameterCategory>(),
    enumAttribute("TaskType", &HighLevelPipetteTechnique::TaskType).as("Task type"))

}  // namespace PipetteXMLMarshaller
