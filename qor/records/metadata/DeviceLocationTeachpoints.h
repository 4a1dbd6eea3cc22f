// The answer to the query "DeviceLocationTeachpoints".
#pragma once

#include <vector>

#include "qor/records/metadata/DeviceLocationTeachpoint.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::DeviceLocationTeachpoints : public MetaDataManagerBase {
    QOR_RECORD(DeviceLocationTeachpoints)
    std::vector<DeviceLocationTeachpoint> DeviceLocationTeachpoints_;
};
