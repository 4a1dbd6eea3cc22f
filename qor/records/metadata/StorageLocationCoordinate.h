// One coordinate of a storage slot: a dimension's name and a value.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::StorageLocationCoordinate : public MetaDataManagerBase {
    QOR_RECORD(StorageLocationCoordinate)
    std::string Name;
    int Value = 0;
};
