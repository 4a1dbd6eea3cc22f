// Asks for the names of the robot's teachpoints.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_GetTeachpoints_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_GetTeachpoints_Input)
};
