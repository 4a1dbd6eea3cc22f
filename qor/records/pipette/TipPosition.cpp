#include "qor/records/pipette/TipPosition.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipPosition,
    enumAttribute("State", &TipPosition::State),
    list("Wells", &TipPosition::Wells))

}  // namespace PipetteXMLMarshaller
