#include "qor/records/metadata/AsyncTaskList.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, AsyncTaskList,
    list("Parameters", &AsyncTaskList::Parameters))
