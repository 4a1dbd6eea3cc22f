#include "qor/records/hooks/LogoutComplete.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(LogoutComplete,
    attribute("UserName", &LogoutComplete::UserName).as("User name"))

}  // namespace HooksPluginXMLMarshaller
