#include "qor/records/hooks/HookResult.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(HookResult,
    attribute("ResultType", &HookResult::ResultType),
    attribute("ResultValue", &HookResult::ResultValue))

}  // namespace HooksPluginXMLMarshaller
