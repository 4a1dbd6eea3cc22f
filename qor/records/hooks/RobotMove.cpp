#include "qor/records/hooks/RobotMove.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(RobotMove,
    attribute("FromDeviceName", &RobotMove::FromDeviceName).as("From device name"),
    attribute("FromLocationName", &RobotMove::FromLocationName).as("From location name"),
    attribute("FromTeachpointName", &RobotMove::FromTeachpointName).as("From teachpoint name"),
    attribute("ToDeviceName", &RobotMove::ToDeviceName).as("To device name"),
    attribute("ToLocationName", &RobotMove::ToLocationName).as("To location name"),
    attribute("ToTeachpointName", &RobotMove::ToTeachpointName).as("To teachpoint name"),
    attribute("RobotName", &RobotMove::RobotName).as("Robot name"),
    attribute("ProcessName", &RobotMove::ProcessName).as("Process name"),
    attribute("InstanceNumber", &RobotMove::InstanceNumber).as("Instance number"))

}  // namespace HooksPluginXMLMarshaller
