// One fixed location of a device, and the tip box that stands there, if any.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipBoxState.h"

namespace PipetteXMLMarshaller {

class TipBoxLocation : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipBoxLocation)
    std::string Location;
    bool HasTipBox = false;
    PipetteXMLMarshaller::TipBoxState TipBoxState;
};

}  // namespace PipetteXMLMarshaller
