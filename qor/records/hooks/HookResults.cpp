#include "qor/records/hooks/HookResults.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(HookResults,
    list("Results", &HookResults::Results))

}  // namespace HooksPluginXMLMarshaller
