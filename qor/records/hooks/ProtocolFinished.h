// A protocol ended.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class ProtocolFinished : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(ProtocolFinished)
    std::string Path = NotSpecified;
    int ProtocolType = 0;
};

}  // namespace HooksPluginXMLMarshaller
