#include "qor/marshal/BaseObjectDescription.h"

#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(BaseObjectDescription,
    base<ObjectInstanceXMLMarshaller::ObjectDescription>(),
    attribute("objecttype", &BaseObjectDescription::objecttype).as("object type"),
    attribute("ObjectPlural", &BaseObjectDescription::ObjectPlural).as("Object plural"),
    attribute("objectplural", &BaseObjectDescription::objectplural).as("object plural"),
    attribute("ObjectDescription", &BaseObjectDescription::ObjectDescription).as("Object description"),
    attribute("BackEndType", &BaseObjectDescription::BackEndType).as("Back-end type"),
    attribute("BackEndRoot", &BaseObjectDescription::BackEndRoot).as("Back-end root"),
    attribute("ObjectNamesAreCaseSensitive", &BaseObjectDescription::ObjectNamesAreCaseSensitive)
        .as("Object names are case sensitive"))

}  // namespace ObjectInstanceXMLMarshaller
