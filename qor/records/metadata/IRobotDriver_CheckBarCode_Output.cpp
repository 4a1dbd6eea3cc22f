#include "qor/records/metadata/IRobotDriver_CheckBarCode_Output.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_CheckBarCode_Output,
    attribute("BarCode", &IRobotDriver_CheckBarCode_Output::BarCode))
