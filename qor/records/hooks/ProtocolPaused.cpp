#include "qor/records/hooks/ProtocolPaused.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(ProtocolPaused,
    attribute("Path", &ProtocolPaused::Path),
    attribute("PauseType", &ProtocolPaused::PauseType))

}  // namespace HooksPluginXMLMarshaller
