// The names of the robot's teachpoints.
#pragma once

#include <string>
#include <vector>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_GetTeachpoints_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_GetTeachpoints_Output)
    std::vector<std::string> Teachpoints;
};
