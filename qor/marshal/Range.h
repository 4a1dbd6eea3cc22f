// One allowed value of a Parameter, with the text a list shows for it.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {

class Range : public ObjectDatabaseXMLMarshallableObject {
    QOR_RECORD(Range)
    std::string Value;           // what is stored
    std::string ValueToDisplay;  // what a list shows for it
};

}  // namespace ObjectInstanceXMLMarshaller
