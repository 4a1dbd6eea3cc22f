#include "qor/records/hooks/ProcessFinishing.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(ProcessFinishing, ProcessEventTable())

}  // namespace HooksPluginXMLMarshaller
