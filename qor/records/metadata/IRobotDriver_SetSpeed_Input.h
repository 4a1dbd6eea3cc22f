// Sets the speed with a load (Type) and with an empty gripper.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_SetSpeed_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_SetSpeed_Input)
    SpeedType Type{};
    SpeedType EmptyPayloadSpeedType{};
};
