#include "qor/records/metadata/IRobotDriver_GetSpeed_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_GetSpeed_Input)
