// A pipetting technique a device offers: a category of Parameters with the
// kind of task it serves. The category's own fields come first.
#pragma once

#include "qor/marshal/ObjectParameterCategory.h"
#include "qor/marshal/Record.h"
#include "qor/records/pipette/PipetteTaskQuery.h"

namespace PipetteXMLMarshaller {

class HighLevelPipetteTechnique : public ObjectInstanceXMLMarshaller::ObjectParameterCategory {
    QOR_DERIVED_RECORD(HighLevelPipetteTechnique)
    PipetteTaskType TaskType = PipetteTaskType{1024};
};

}  // namespace PipetteXMLMarshaller
