#include "qor/records/metadata/MetaData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, MetaData,
    attribute("Version", &MetaData::Version).shownAs("1.0"),
    child("Device", &MetaData::Device),
    list("Versions", &MetaData::Versions),
    list("Commands", &MetaData::Commands))
