#include "qor/records/metadata/Response.h"

#include "qor/records/metadata/MessageTable.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Response, fileType("QueryResponse"), qor::metadata::MessageTable())
