// The robot driver's answer to Move: nothing beyond success.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_Move_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_Move_Output)
};
