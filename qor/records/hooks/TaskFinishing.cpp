#include "qor/records/hooks/TaskFinishing.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(TaskFinishing, TaskEventTable())

}  // namespace HooksPluginXMLMarshaller
