#include "qor/records/hooks/ProtocolStarted.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(ProtocolStarted,
    attribute("Path", &ProtocolStarted::Path),
    attribute("Simulating", &ProtocolStarted::Simulating),
    attribute("ProtocolType", &ProtocolStarted::ProtocolType).as("Protocol type"),
    attribute("Notes", &ProtocolStarted::Notes),
    list("FutureProtocols", &ProtocolStarted::FutureProtocols))

}  // namespace HooksPluginXMLMarshaller
