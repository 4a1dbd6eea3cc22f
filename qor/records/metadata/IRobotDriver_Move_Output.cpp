#include "qor/records/metadata/IRobotDriver_Move_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_Move_Output)
