#include "qor/records/pipette/TipBoxLocation.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipBoxLocation,
    attribute("Location", &TipBoxLocation::Location),
    attribute("HasTipBox", &TipBoxLocation::HasTipBox).as("Has tip box"),
    child("TipBoxState", &TipBoxLocation::TipBoxState))

}  // namespace PipetteXMLMarshaller
