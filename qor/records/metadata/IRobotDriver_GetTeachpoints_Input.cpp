#include "qor/records/metadata/IRobotDriver_GetTeachpoints_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_GetTeachpoints_Input)
