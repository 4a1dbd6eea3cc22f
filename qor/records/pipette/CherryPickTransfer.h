// One hit-pick transfer from a source well to a destination well.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/pipette/DestinationWell.h"
#include "qor/records/pipette/SourceWell.h"

namespace PipetteXMLMarshaller {

class CherryPickTransfer : public PipetteXMLMarshallerBase {
    QOR_RECORD(CherryPickTransfer)
    PipetteXMLMarshaller::SourceWell SourceWell;
    PipetteXMLMarshaller::DestinationWell DestinationWell;
    double Volume = 0.0;
};

}  // namespace PipetteXMLMarshaller
