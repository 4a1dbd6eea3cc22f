#include "qor/records/pipette/AllTipBoxStateQuery.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(AllTipBoxStateQuery,
    list("TipBoxStateQuery", &AllTipBoxStateQuery::TipBoxStateQuery))

}  // namespace PipetteXMLMarshaller
