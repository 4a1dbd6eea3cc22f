#include "qor/records/hooks/Aborted.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(Aborted, PathEventTable())

}  // namespace HooksPluginXMLMarshaller
