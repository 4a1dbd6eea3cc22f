#include "qor/records/pipette/VolumeUpdate.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(VolumeUpdate,
    attribute("VolumeChange", &VolumeUpdate::VolumeChange).as("Volume change"),
    attribute("Row", &VolumeUpdate::Row),
    attribute("Col", &VolumeUpdate::Col))

}  // namespace PipetteXMLMarshaller
