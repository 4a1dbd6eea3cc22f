#include "qor/records/metadata/IRobotDriver_DelidRelid_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_DelidRelid_Output)
