// A protocol was paused; PauseType says how (its values are the scheduler's).
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class ProtocolPaused : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(ProtocolPaused)
    std::string Path = NotSpecified;
    int PauseType = 0;
};

}  // namespace HooksPluginXMLMarshaller
