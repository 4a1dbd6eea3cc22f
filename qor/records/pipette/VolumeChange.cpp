#include "qor/records/pipette/VolumeChange.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(VolumeChange,
    enumAttribute("Operation", &VolumeChange::Operation),
    attribute("VolumeChange", &VolumeChange::VolumeChange_).as("Volume change"),
    attribute("WellSelection", &VolumeChange::WellSelection)
        .as("Well selection")
        .parameterType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT),
    attribute("Plate", &VolumeChange::Plate))

}  // namespace PipetteXMLMarshaller
