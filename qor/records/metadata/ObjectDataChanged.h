// Says that a property of an object changed, with its old and new value.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::ObjectDataChanged : public MetaDataManagerBase {
    QOR_RECORD(ObjectDataChanged)
    std::string Message;
    std::string ObjectType;
    std::string ObjectName;
    std::string PropertyName;
    std::string OldValue;
    std::string NewValue;
};
