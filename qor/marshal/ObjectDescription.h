// The kind of an object and its categories of Parameters.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/ObjectParameterCategory.h"
#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

class ObjectDescription : public ObjectDatabaseXMLMarshallableObject {
    QOR_RECORD(ObjectDescription)
    std::string ObjectType;
    std::vector<ObjectParameterCategory> Categories;
};

}  // namespace ObjectInstanceXMLMarshaller
