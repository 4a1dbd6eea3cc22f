#include "qor/records/hooks/PauseSchedulerOptionSelected.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(PauseSchedulerOptionSelected,
    attribute("ButtonName", &PauseSchedulerOptionSelected::ButtonName))

}  // namespace HooksPluginXMLMarshaller
