#include "qor/records/pipette/VolumeUpdates.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(VolumeUpdates,
    attribute("Location", &VolumeUpdates::Location),
    attribute("OptionalDevice", &VolumeUpdates::OptionalDevice),
    attribute("ResetAbsolute", &VolumeUpdates::ResetAbsolute).as("Reset Absolute"),
    list("VolumeUpdates", &VolumeUpdates::VolumeUpdates_))

}  // namespace PipetteXMLMarshaller
