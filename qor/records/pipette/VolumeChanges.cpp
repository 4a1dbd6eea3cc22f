#include "qor/records/pipette/VolumeChanges.h"

#include <utility>

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(VolumeChanges,
    list("VolumeChanges", &VolumeChanges::VolumeChanges_))

void VolumeChanges::AddVolumeChange(VolumeChangeType type, double volume, std::string wellSelection,
                                    std::string plate, std::string) {
    VolumeChange &change = VolumeChanges_.emplace_back();
    change.Operation = type;
    change.VolumeChange_ = volume;
    change.WellSelection = std::move(wellSelection);
    change.Plate = std::move(plate);
}

}  // namespace PipetteXMLMarshaller
