#include "qor/records/pipette/TipChange.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipChange,
    enumAttribute("Operation", &TipChange::Operation),
    attribute("TipCapacity", &TipChange::TipCapacity).as("Tip capacity").readAsLong(),
    attribute("AutoSelection", &TipChange::AutoSelection).as("Auto selection"),
    attribute("WellSelection", &TipChange::WellSelection)
        .as("Well selection")
        .parameterType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT),
    attribute("Plate", &TipChange::Plate),
    attribute("MarkTipsOffAsUsed", &TipChange::MarkTipsOffAsUsed).as("Mark tips-off as used"))

}  // namespace PipetteXMLMarshaller
