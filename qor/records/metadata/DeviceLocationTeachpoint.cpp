#include "qor/records/metadata/DeviceLocationTeachpoint.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, DeviceLocationTeachpoint,
    attribute("DeviceName", &DeviceLocationTeachpoint::DeviceName).as("Device name"),
    attribute("DeviceType", &DeviceLocationTeachpoint::DeviceType).as("Device type"),
    attribute("LocationName", &DeviceLocationTeachpoint::LocationName).as("Location name"),
    attribute("RobotName", &DeviceLocationTeachpoint::RobotName).as("Robot name"),
    attribute("RobotType", &DeviceLocationTeachpoint::RobotType).as("Robot type"),
    attribute("TeachpointName", &DeviceLocationTeachpoint::TeachpointName).as("Teachpoint name"))
