#include "qor/records/metadata/Teachpoint.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Teachpoint,
    attribute("Name", &Teachpoint::Name),
    list("Parameters", &Teachpoint::Parameters))
