#include "qor/records/metadata/UpdateParameter.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, UpdateParameter,
    attribute("Name", &UpdateParameter::Name),
    attribute("Value", &UpdateParameter::Value))
