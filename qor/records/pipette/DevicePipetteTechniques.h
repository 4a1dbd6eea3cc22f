// The techniques of several devices.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/DevicePipetteTechnique.h"

namespace PipetteXMLMarshaller {

class DevicePipetteTechniques : public PipetteXMLMarshallerBase {
    QOR_RECORD(DevicePipetteTechniques)
    std::vector<DevicePipetteTechnique> Techniques;
};

}  // namespace PipetteXMLMarshaller
