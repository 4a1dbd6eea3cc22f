#include "qor/records/hooks/ProcessStarting.h"

#include "qor/records/hooks/SharedTables.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(ProcessStarting, ProcessEventTable())

}  // namespace HooksPluginXMLMarshaller
