#include "qor/records/metadata/IRobotDriver_CheckPlatePresent_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_CheckPlatePresent_Input,
    attribute("Location", &IRobotDriver_CheckPlatePresent_Input::Location),
    attribute("OffsetHeight", &IRobotDriver_CheckPlatePresent_Input::OffsetHeight))
