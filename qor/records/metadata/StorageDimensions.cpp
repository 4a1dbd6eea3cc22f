#include "qor/records/metadata/StorageDimensions.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, StorageDimensions,
    attribute("Name0", &StorageDimensions::Name0).as(StorageDimensions::Cassette).shownOnly(),
    attribute("Name1", &StorageDimensions::Name1).as(StorageDimensions::Slot).shownOnly(),
    list("Dimensions", &StorageDimensions::Dimensions),
    attribute("DirectStorageAccess", &StorageDimensions::DirectStorageAccess))

MetaDataManager::StorageLocation MetaDataManager::StorageDimensions::GetStorageLocation(int first, int second) const {
    StorageLocation location;
    location.AddCoordinate(Name0, first);
    location.AddCoordinate(Name1, second);
    return location;
}
