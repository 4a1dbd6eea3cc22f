// The parameters of the running asynchronous tasks, one Parameter each.
#pragma once

#include <vector>

#include "qor/marshal/Parameter.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::AsyncTaskList : public MetaDataManagerBase {
    QOR_RECORD(AsyncTaskList)
    std::vector<ObjectInstanceXMLMarshaller::Parameter> Parameters;
};
