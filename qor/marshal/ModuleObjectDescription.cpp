#include "qor/marshal/ModuleObjectDescription.h"

#include "qor/marshal/RecordDefinition.h"

namespace ObjectInstanceXMLMarshaller {

QOR_DEFINE_RECORD(ModuleObjectDescription,
    base<ObjectDescription>(),
    attribute("ModuleName", &ModuleObjectDescription::ModuleName).as("Module name"),
    attribute("ModuleDescription", &ModuleObjectDescription::ModuleDescription).as("Module description"))

}  // namespace ObjectInstanceXMLMarshaller
