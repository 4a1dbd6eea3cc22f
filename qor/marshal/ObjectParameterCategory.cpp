#include "qor/marshal/ObjectParameterCategory.h"

#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(ObjectParameterCategory,
    attribute("Name", &ObjectParameterCategory::Name),
    attribute("Description", &ObjectParameterCategory::Description),
    list("Parameters", &ObjectParameterCategory::Parameters))

}  // namespace ObjectInstanceXMLMarshaller
