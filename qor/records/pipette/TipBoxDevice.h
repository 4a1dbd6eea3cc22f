// The tip boxes standing at the fixed locations of one device.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipBoxLocation.h"

namespace PipetteXMLMarshaller {

class TipBoxDevice : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipBoxDevice)
    std::string DeviceName;
    std::vector<TipBoxLocation> Locations;

    // Appends a location of that name, with no tip box.
    void AddLocation(const std::string &location);

    // When both are the same device: each location of source that target
    // has too (the first of that name), and where both hold a box of the
    // same size, gives target its tip state.
    static void CopyTipStates(TipBoxDevice &target, const TipBoxDevice &source);
};

}  // namespace PipetteXMLMarshaller
