// The average time of a move at each speed, for simulated runs.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_GetSimulationTimes_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_GetSimulationTimes_Output)
    int AverageSlowMoveTime = 0;
    int AverageMediumMoveTime = 0;
    int AverageFastMoveTime = 0;
};
