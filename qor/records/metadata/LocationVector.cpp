#include "qor/records/metadata/LocationVector.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, LocationVector,
    list("Locations", &LocationVector::Locations))
