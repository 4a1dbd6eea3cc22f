// Asks for the robot's current speed.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_GetSpeed_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_GetSpeed_Input)
};
