#include "qor/records/metadata/StorageDimension.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, StorageDimension,
    attribute("Size", &StorageDimension::Size))
