// The record's fields; the tip state copies and conversions stand in
// TipStateCopy.cpp and TipStateObjectInstance.cpp.
#include "qor/records/pipette/TipBoxDevices.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipBoxDevices,
    attribute("DeviceFile", &TipBoxDevices::DeviceFile),
    attribute("SavedFilename", &TipBoxDevices::SavedFilename).as("Saved filename"),
    list("Devices", &TipBoxDevices::Devices))

bool TipBoxDevices::AreDevicesAndLocationsEqual(const TipBoxDevices &first, const TipBoxDevices &second) {
    return first.DeviceFile == second.DeviceFile;
}

}  // namespace PipetteXMLMarshaller
