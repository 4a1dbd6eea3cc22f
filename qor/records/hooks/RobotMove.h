// A robot moves from one teachpoint to another.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class RobotMove : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(RobotMove)
    std::string FromDeviceName;
    std::string FromLocationName;
    std::string FromTeachpointName;
    std::string ToDeviceName;
    std::string ToLocationName;
    std::string ToTeachpointName;
    std::string RobotName;
    std::string ProcessName;
    int InstanceNumber = 0;
};

}  // namespace HooksPluginXMLMarshaller
