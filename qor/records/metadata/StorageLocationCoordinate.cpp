#include "qor/records/metadata/StorageLocationCoordinate.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, StorageLocationCoordinate,
    attribute("Name", &StorageLocationCoordinate::Name),
    attribute("Value", &StorageLocationCoordinate::Value))
