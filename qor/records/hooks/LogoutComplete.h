// A user logged out.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class LogoutComplete : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(LogoutComplete)
    std::string UserName;
};

}  // namespace HooksPluginXMLMarshaller
