// A change of volume at a plate. WellSelection holds the text of a
// WellSelection record.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace PipetteXMLMarshaller {

// How the volume changed; the integers are the scheduler's.
enum VolumeChangeType : int {
    VOLUME_CHANGE_TYPE_1 = 1,
};

class VolumeChange : public PipetteXMLMarshallerBase {
    QOR_RECORD(VolumeChange)
    VolumeChangeType Operation = VOLUME_CHANGE_TYPE_1;
    double VolumeChange_ = 0.0;
    std::string WellSelection;
    std::string Plate;
};

}  // namespace PipetteXMLMarshaller
