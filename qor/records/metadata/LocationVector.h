// A list of locations as a document of its own.
#pragma once

#include <vector>

#include "qor/records/metadata/Location.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::LocationVector : public MetaDataManagerBase {
    QOR_RECORD(LocationVector)
    std::vector<Location> Locations;
};
