#include "qor/records/pipette/TipBoxInstance.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipBoxInstance,
    attribute("Instance", &TipBoxInstance::Instance).parameterType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_INTEGER),
    child("TipBoxState", &TipBoxInstance::TipBoxState))

}  // namespace PipetteXMLMarshaller
