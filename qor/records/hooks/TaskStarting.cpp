#include "qor/records/hooks/TaskStarting.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(TaskStarting, TaskEventTable())

}  // namespace HooksPluginXMLMarshaller
