// A plug-in's answer as a whole: its requests, in order.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/HookResult.h"

namespace HooksPluginXMLMarshaller {

class HookResults : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(HookResults)
    std::vector<HookResult> Results;
};

}  // namespace HooksPluginXMLMarshaller
