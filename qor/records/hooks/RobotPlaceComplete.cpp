#include "qor/records/hooks/RobotPlaceComplete.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(RobotPlaceComplete)

}  // namespace HooksPluginXMLMarshaller
