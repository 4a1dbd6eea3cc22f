// A message to be posted to Twitter.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class SendTwitter : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(SendTwitter)
    std::string Message;
};

}  // namespace HooksPluginXMLMarshaller
