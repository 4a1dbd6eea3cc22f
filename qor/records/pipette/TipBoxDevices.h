// The static tip boxes of a device file. DeviceFile is that file's path,
// SavedFilename where the state was saved.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipBoxDevice.h"

namespace PipetteXMLMarshaller {

class TipBoxDevices : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipBoxDevices)
    std::string DeviceFile;
    std::string SavedFilename;
    std::vector<TipBoxDevice> Devices;

    // When both are of the same device file: each device of source that
    // target has too (the first of that name) copies its states over;
    // devices target lacks are skipped.
    static void CopyTipStates(TipBoxDevices &target, const TipBoxDevices &source);
    // Compares DeviceFile alone, whatever the devices and locations.
    static bool AreDevicesAndLocationsEqual(const TipBoxDevices &first, const TipBoxDevices &second);

    // The boxes as the user edits them: the module "Static Tip Boxes" with a
    // category per device and a Parameter per location (type 23 holding the
    // box's state, or a text when no box stands there). withFile first
    // replaces the main categories with "Tip tracking info" and the path.
    void ConvertToObjectInstance(ObjectInstanceXMLMarshaller::ObjectInstance &instance, bool withFile) const;
    // Reads back what ConvertToObjectInstance wrote: the path, and the
    // devices from the module "Static Tip Boxes". Throws XMLParserException,
    // changing nothing, when a box's state isn't a document.
    void ConvertFromObjectInstance(const ObjectInstanceXMLMarshaller::ObjectInstance &instance);
};

}  // namespace PipetteXMLMarshaller
