#include "qor/records/metadata/IRobotDriver_GetSimulationTimes_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_GetSimulationTimes_Output,
    attribute("AverageSlowMoveTime", &IRobotDriver_GetSimulationTimes_Output::AverageSlowMoveTime),
    attribute("AverageMediumMoveTime", &IRobotDriver_GetSimulationTimes_Output::AverageMediumMoveTime),
    attribute("AverageFastMoveTime", &IRobotDriver_GetSimulationTimes_Output::AverageFastMoveTime))
