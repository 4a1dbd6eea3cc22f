#include "qor/records/metadata/IRobotDriver_GetTeachpoints_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_GetTeachpoints_Output,
    list("Teachpoints", &IRobotDriver_GetTeachpoints_Output::Teachpoints))
