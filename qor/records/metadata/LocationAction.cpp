#include "qor/records/metadata/LocationAction.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, LocationAction,
    attribute("Name", &LocationAction::Name),
    attribute("PrepareLocation", &LocationAction::PrepareLocation))
