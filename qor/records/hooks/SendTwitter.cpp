#include "qor/records/hooks/SendTwitter.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(SendTwitter,
    attribute("Message", &SendTwitter::Message).as("Twitter message"))

}  // namespace HooksPluginXMLMarshaller
