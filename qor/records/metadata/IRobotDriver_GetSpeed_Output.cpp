#include "qor/records/metadata/IRobotDriver_GetSpeed_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_GetSpeed_Output,
    enumAttribute("Type", &IRobotDriver_GetSpeed_Output::Type))
