#include "qor/records/pipette/DiagnosticsTipOperation.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(DiagnosticsTipOperation,
    attribute("Location", &DiagnosticsTipOperation::Location),
    attribute("Labware", &DiagnosticsTipOperation::Labware),
    enumAttribute("Operation", &DiagnosticsTipOperation::Operation),
    child("WellSelection", &DiagnosticsTipOperation::WellSelection))

}  // namespace PipetteXMLMarshaller
