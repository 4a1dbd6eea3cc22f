#include "qor/records/hooks/FileLoaded.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(FileLoaded, PathEventTable())

}  // namespace HooksPluginXMLMarshaller
