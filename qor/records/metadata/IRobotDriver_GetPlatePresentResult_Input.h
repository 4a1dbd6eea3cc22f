// Asks for the outcome of a background CheckPlatePresent.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_GetPlatePresentResult_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_GetPlatePresentResult_Input)
};
