#include "qor/records/hooks/ProtocolFinished.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(ProtocolFinished,
    attribute("Path", &ProtocolFinished::Path),
    attribute("ProtocolType", &ProtocolFinished::ProtocolType).as("Protocol type"))

}  // namespace HooksPluginXMLMarshaller
