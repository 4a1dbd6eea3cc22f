// An error was raised; Profile names the device profile.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class Error : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(Error)
    std::string Path = NotSpecified;
    std::string Source;
    std::string Message;
    std::string ProcessName;
    unsigned int InstanceNumber = 0;
    std::string DeviceName;
    std::string LocationName;
    std::string Profile;
};

}  // namespace HooksPluginXMLMarshaller
