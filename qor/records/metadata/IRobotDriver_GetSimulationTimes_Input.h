// Asks for the average move times a simulated run uses.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_GetSimulationTimes_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_GetSimulationTimes_Input)
};
