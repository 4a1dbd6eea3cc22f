#include "qor/records/metadata/IRobotDriver_GetSimulationTimes_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_GetSimulationTimes_Input)
