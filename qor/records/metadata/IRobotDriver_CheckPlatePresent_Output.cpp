#include "qor/records/metadata/IRobotDriver_CheckPlatePresent_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_CheckPlatePresent_Output,
    attribute("Present", &IRobotDriver_CheckPlatePresent_Output::Present))
