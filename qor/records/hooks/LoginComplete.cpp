#include "qor/records/hooks/LoginComplete.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(LoginComplete,
    attribute("UserName", &LoginComplete::UserName).as("User name"),
    attribute("AccessLevel", &LoginComplete::AccessLevel).as("Access level"))

}  // namespace HooksPluginXMLMarshaller
