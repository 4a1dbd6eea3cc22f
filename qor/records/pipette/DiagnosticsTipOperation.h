// A tip operation started by hand from a diagnostics dialog, at a location,
// on a labware.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipChange.h"
#include "qor/records/pipette/WellSelection.h"

namespace PipetteXMLMarshaller {

class DiagnosticsTipOperation : public PipetteXMLMarshallerBase {
    QOR_RECORD(DiagnosticsTipOperation)
    std::string Location;
    std::string Labware;
    TipChangeType Operation = TIP_CHANGE_TYPE_1;
    PipetteXMLMarshaller::WellSelection WellSelection;
};

}  // namespace PipetteXMLMarshaller
