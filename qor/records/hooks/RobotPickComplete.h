// A robot finished a pick; the event is its element name and nothing else.
#pragma once

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class RobotPickComplete : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(RobotPickComplete)
};

}  // namespace HooksPluginXMLMarshaller
