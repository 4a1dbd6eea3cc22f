// The tip state of one instance of a process. Instance is text in the XML
// and an integer Parameter.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipBoxState.h"

namespace PipetteXMLMarshaller {

class TipBoxInstance : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipBoxInstance)
    std::string Instance;
    PipetteXMLMarshaller::TipBoxState TipBoxState;
};

}  // namespace PipetteXMLMarshaller
