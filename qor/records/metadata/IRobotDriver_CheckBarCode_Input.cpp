#include "qor/records/metadata/IRobotDriver_CheckBarCode_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_CheckBarCode_Input,
    attribute("DeviceName", &IRobotDriver_CheckBarCode_Input::DeviceName),
    attribute("LocationName", &IRobotDriver_CheckBarCode_Input::LocationName),
    attribute("Teachpoint", &IRobotDriver_CheckBarCode_Input::Teachpoint),
    attribute("OffsetHeight", &IRobotDriver_CheckBarCode_Input::OffsetHeight))
