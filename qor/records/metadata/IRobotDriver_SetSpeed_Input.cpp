#include "qor/records/metadata/IRobotDriver_SetSpeed_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_SetSpeed_Input,
    enumAttribute("Type", &IRobotDriver_SetSpeed_Input::Type),
    enumAttribute("EmptyPayloadSpeedType", &IRobotDriver_SetSpeed_Input::EmptyPayloadSpeedType))
