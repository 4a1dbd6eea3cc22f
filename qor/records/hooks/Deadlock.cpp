#include "qor/records/hooks/Deadlock.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(Deadlock, PathEventTable())

}  // namespace HooksPluginXMLMarshaller
