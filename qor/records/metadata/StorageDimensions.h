// The shape of a storage device, as its Device carries it: the names of its
// two dimensions (cassette and slot, say), their sizes, and whether a slot
// can be reached directly.
#pragma once

#include <string>
#include <vector>

#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/StorageDimension.h"
#include "qor/records/metadata/StorageLocation.h"

class MetaDataManager::StorageDimensions : public MetaDataManagerBase {
    QOR_RECORD(StorageDimensions)
    // As a property bag the names show under the Parameter names Cassette
    // and Slot, and are never read back: an editor shows them, and only
    // DirectStorageAccess can be changed.
    std::string Name0;
    std::string Name1;
    std::vector<StorageDimension> Dimensions;
    bool DirectStorageAccess = false;

    static constexpr char Cassette[] = "Cassette";
    static constexpr char Slot[] = "Slot";

    // The slot at (first, second): coordinates (Name0, first), (Name1, second).
    StorageLocation GetStorageLocation(int first, int second) const;
};
