#include "qor/records/metadata/Update.h"

#include "qor/records/metadata/MessageTable.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Update, fileType("Update"), qor::metadata::MessageTable())
