// The size of one dimension of a storage device.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::StorageDimension : public MetaDataManagerBase {
    QOR_RECORD(StorageDimension)
    int Size = 0;
};
