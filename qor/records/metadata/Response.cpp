#include "qor/records/metadata/Response.h"

#include "qor/records/metadata/MessageFields.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Response, qor::metadata::MessageFields<Response>("QueryResponse"))
