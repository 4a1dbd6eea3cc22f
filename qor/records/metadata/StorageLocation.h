// A slot of a storage device: its coordinates, one per dimension, and the
// location it lies in.
#pragma once

#include <string>
#include <vector>

#include "qor/records/metadata/Location.h"
#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/StorageLocationCoordinate.h"

class MetaDataManager::StorageLocation : public MetaDataManagerBase {
    QOR_RECORD(StorageLocation)
    std::vector<StorageLocationCoordinate> Coordinates;
    MetaDataManager::Location Location;

    void AddCoordinate(std::string name, int value);
    // "name value" per coordinate, in order, joined by ", "; "" for none.
    std::string GetStorageLocationName() const;
};
