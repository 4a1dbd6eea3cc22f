#include "qor/records/hooks/RobotPickComplete.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(RobotPickComplete)

}  // namespace HooksPluginXMLMarshaller
