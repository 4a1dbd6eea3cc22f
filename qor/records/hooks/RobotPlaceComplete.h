// A robot finished a place; the event is its element name and nothing else.
#pragma once

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class RobotPlaceComplete : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(RobotPlaceComplete)
};

}  // namespace HooksPluginXMLMarshaller
