// A protocol began. Simulating says the run is a simulation; FutureProtocols
// lists the runs queued behind this one.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/FutureProtocol.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class ProtocolStarted : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(ProtocolStarted)
    std::string Path = NotSpecified;
    bool Simulating = false;
    int ProtocolType = 0;
    std::string Notes;
    std::vector<FutureProtocol> FutureProtocols;
};

}  // namespace HooksPluginXMLMarshaller
