// Asks for the state of one tip box. With ProcessLabware the box is a
// process tip box: ProcessOrDeviceName names a process and
// InstanceOrLocationName an instance; otherwise a device and a location.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipBoxState.h"

namespace PipetteXMLMarshaller {

class SingleTipBoxStateQuery : public PipetteXMLMarshallerBase {
    QOR_RECORD(SingleTipBoxStateQuery)
    std::string ProcessOrDeviceName;
    bool ProcessLabware = false;
    std::string InstanceOrLocationName;
    PipetteXMLMarshaller::TipBoxState TipBoxState;
};

}  // namespace PipetteXMLMarshaller
