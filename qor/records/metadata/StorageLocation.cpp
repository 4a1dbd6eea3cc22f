#include "qor/records/metadata/StorageLocation.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, StorageLocation,
    list("Coordinates", &StorageLocation::Coordinates),
    child("Location", &StorageLocation::Location))

void MetaDataManager::StorageLocation::AddCoordinate(std::string name, int value) {
    StorageLocationCoordinate &coordinate = Coordinates.emplace_back();
    coordinate.Name = std::move(name);
    coordinate.Value = value;
}

std::string MetaDataManager::StorageLocation::GetStorageLocationName() const {
    std::string text;
    for (const StorageLocationCoordinate &coordinate : Coordinates) {
        if (!text.empty()) text += ", ";
        text += coordinate.Name;
        text += ' ';
        text += Convert<std::string>(coordinate.Value);
    }
    return text;
}
