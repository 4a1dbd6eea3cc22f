// A named group of Parameters in an ObjectInstance.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Parameter.h"
#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

class ObjectParameterCategory : public ObjectDatabaseXMLMarshallableObject {
    QOR_RECORD(ObjectParameterCategory)
    std::string Name;
    std::string Description;
    std::vector<Parameter> Parameters;
};

}  // namespace ObjectInstanceXMLMarshaller
