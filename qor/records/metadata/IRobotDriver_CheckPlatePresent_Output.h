// Whether the plate is there, when the check ran in the foreground.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_CheckPlatePresent_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_CheckPlatePresent_Output)
    bool Present = false;
};
