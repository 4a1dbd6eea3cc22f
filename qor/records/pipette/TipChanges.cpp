#include "qor/records/pipette/TipChanges.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipChanges,
    list("TipChanges", &TipChanges::TipChanges_))

void TipChanges::AddTipChange(TipChangeType type, double capacity) {
    TipChange &change = TipChanges_.emplace_back();
    change.Operation = type;
    change.TipCapacity = capacity;
}

}  // namespace PipetteXMLMarshaller
