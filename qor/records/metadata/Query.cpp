#include "qor/records/metadata/Query.h"

#include "qor/records/metadata/MessageFields.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Query, qor::metadata::MessageFields<Query>("Query"))
