#include "qor/records/hooks/FileSaved.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(FileSaved, PathEventTable())

}  // namespace HooksPluginXMLMarshaller
