// The description of an object's kind as an ObjectInstance carries it: the
// fields of ObjectDescription, then its own.
#pragma once

#include <string>

#include "qor/marshal/DatabaseBackEndTypes.h"
#include "qor/marshal/ObjectDescription.h"
#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

// objecttype and ObjectType (of the base), objectplural and ObjectPlural,
// differ in case only and are four distinct fields.
class BaseObjectDescription : public ObjectDescription {
    QOR_DERIVED_RECORD(BaseObjectDescription)
    std::string objecttype;
    std::string ObjectPlural;
    std::string objectplural;
    std::string ObjectDescription;
    DATABASE_BACK_END_TYPES BackEndType = DATABASE_BACK_END_DEFAULT;
    std::string BackEndRoot;
    bool ObjectNamesAreCaseSensitive = false;
};

}  // namespace ObjectInstanceXMLMarshaller
