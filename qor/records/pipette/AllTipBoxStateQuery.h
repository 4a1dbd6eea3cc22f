// Many tip box state queries at once.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/SingleTipBoxStateQuery.h"

namespace PipetteXMLMarshaller {

class AllTipBoxStateQuery : public PipetteXMLMarshallerBase {
    QOR_RECORD(AllTipBoxStateQuery)
    std::vector<SingleTipBoxStateQuery> TipBoxStateQuery;
};

}  // namespace PipetteXMLMarshaller
