#include "qor/records/pipette/SingleTipBoxStateQuery.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(SingleTipBoxStateQuery,
    attribute("ProcessOrDeviceName", &SingleTipBoxStateQuery::ProcessOrDeviceName).as("ProcessOrDevice"),
    attribute("ProcessLabware", &SingleTipBoxStateQuery::ProcessLabware).as("ProcessTipBox"),
    attribute("InstanceOrLocationName", &SingleTipBoxStateQuery::InstanceOrLocationName)
        .as("InstanceOrLocationName")
        .parameterType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_INTEGER),
    child("TipBoxState", &SingleTipBoxStateQuery::TipBoxState))

}  // namespace PipetteXMLMarshaller
