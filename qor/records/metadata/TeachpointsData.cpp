#include "qor/records/metadata/TeachpointsData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, TeachpointsData,
    list("Teachpoints", &TeachpointsData::Teachpoints))
