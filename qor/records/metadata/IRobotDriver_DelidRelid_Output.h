// The robot driver's answer to DelidRelid: nothing beyond success.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_DelidRelid_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_DelidRelid_Output)
};
