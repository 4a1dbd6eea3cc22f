#include "qor/marshal/ObjectDescription.h"

#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(ObjectDescription,
    attribute("ObjectType", &ObjectDescription::ObjectType).as("Object type"),
    list("Categories", &ObjectDescription::Categories))

}  // namespace ObjectInstanceXMLMarshaller
