#include "qor/records/metadata/IRobotDriver_GetPlatePresentResult_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_GetPlatePresentResult_Output,
    attribute("Present", &IRobotDriver_GetPlatePresentResult_Output::Present))
