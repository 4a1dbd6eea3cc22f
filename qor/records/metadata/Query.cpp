#include "qor/records/metadata/Query.h"

#include "qor/records/metadata/MessageTable.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Query, fileType("Query"), qor::metadata::MessageTable())
