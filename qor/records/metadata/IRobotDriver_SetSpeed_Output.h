// The robot driver's answer to SetSpeed: nothing beyond success.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_SetSpeed_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_SetSpeed_Output)
};
