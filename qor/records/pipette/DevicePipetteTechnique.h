// The techniques of one device, by the device's name.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/PipetteTechniques.h"

namespace PipetteXMLMarshaller {

class DevicePipetteTechnique : public PipetteTechniques {
    QOR_DERIVED_RECORD(DevicePipetteTechnique)
    std::string DeviceName;
};

}  // namespace PipetteXMLMarshaller
