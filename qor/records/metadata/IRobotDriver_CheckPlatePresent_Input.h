// Asks whether a plate stands at a location. The check may run in the
// background; GetPlatePresentResult fetches its outcome.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_CheckPlatePresent_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_CheckPlatePresent_Input)
    std::string Location;
    double OffsetHeight = 0.0;
};
