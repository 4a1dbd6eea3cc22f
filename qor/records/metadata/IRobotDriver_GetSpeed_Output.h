// The robot's current speed.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_GetSpeed_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_GetSpeed_Output)
    SpeedType Type{};
};
