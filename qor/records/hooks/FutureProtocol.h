// An entry of the list of runs still to come, carried inside ProtocolStarted.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class FutureProtocol : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(FutureProtocol)
    std::string Name;
    std::string Notes;
    std::string StartDate;
    std::string StartTime;
};

}  // namespace HooksPluginXMLMarshaller
