// A list of volume changes.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/VolumeChange.h"

namespace PipetteXMLMarshaller {

class VolumeChanges : public PipetteXMLMarshallerBase {
    QOR_RECORD(VolumeChanges)
    std::vector<VolumeChange> VolumeChanges_;

    // Appends a change of this type and volume, at wellSelection (a
    // WellSelection's text) of plate. A VolumeChange has no field for the
    // last text, which is not kept.
    void AddVolumeChange(VolumeChangeType type, double volume, std::string wellSelection, std::string plate,
                         std::string unused);
};

}  // namespace PipetteXMLMarshaller
