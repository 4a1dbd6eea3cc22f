#include "qor/records/metadata/Update.h"

#include "qor/records/metadata/MessageFields.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Update, qor::metadata::MessageFields<Update>("Update"))
