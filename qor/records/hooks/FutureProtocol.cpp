#include "qor/records/hooks/FutureProtocol.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(FutureProtocol,
    attribute("Name", &FutureProtocol::Name),
    attribute("Notes", &FutureProtocol::Notes),
    attribute("StartDate", &FutureProtocol::StartDate),
    attribute("StartTime", &FutureProtocol::StartTime))

}  // namespace HooksPluginXMLMarshaller
