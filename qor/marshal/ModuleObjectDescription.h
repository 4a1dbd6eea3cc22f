// The categories a plug-in module adds to an object.
#pragma once

#include <string>

#include "qor/marshal/ObjectDescription.h"
#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

class ModuleObjectDescription : public ObjectDescription {
    QOR_DERIVED_RECORD(ModuleObjectDescription)
    std::string ModuleName;
    std::string ModuleDescription;
};

}  // namespace ObjectInstanceXMLMarshaller
