// A user logged in, with the access level granted.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class LoginComplete : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(LoginComplete)
    std::string UserName;
    unsigned int AccessLevel = 0;
};

}  // namespace HooksPluginXMLMarshaller
