// Volume changes at a location. With ResetAbsolute the values are new
// absolute volumes, not differences.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/VolumeUpdate.h"

namespace PipetteXMLMarshaller {

class VolumeUpdates : public PipetteXMLMarshallerBase {
    QOR_RECORD(VolumeUpdates)
    std::string Location;
    std::string OptionalDevice;
    bool ResetAbsolute = false;
    std::vector<VolumeUpdate> VolumeUpdates_;
};

}  // namespace PipetteXMLMarshaller
