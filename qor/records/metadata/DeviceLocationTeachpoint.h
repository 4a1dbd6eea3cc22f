// Ties a location of a device to the teachpoint by which a robot reaches it.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::DeviceLocationTeachpoint : public MetaDataManagerBase {
    QOR_RECORD(DeviceLocationTeachpoint)
    std::string DeviceName;
    std::string DeviceType;
    std::string LocationName;
    std::string RobotName;
    std::string RobotType;
    std::string TeachpointName;
};
