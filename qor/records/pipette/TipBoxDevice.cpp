// The record's fields; CopyTipStates stands with the other tip state copies
// in TipStateCopy.cpp.
#include "qor/records/pipette/TipBoxDevice.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipBoxDevice,
    attribute("DeviceName", &TipBoxDevice::DeviceName),
    list("Locations", &TipBoxDevice::Locations))

void TipBoxDevice::AddLocation(const std::string &location) {
    Locations.emplace_back().Location = location;
}

}  // namespace PipetteXMLMarshaller
