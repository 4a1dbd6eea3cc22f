// A device as it describes itself to the scheduler: what it is, its
// settings (Parameters), the places a plate can stand on it, the values it
// reports, and, for a storage device or a robot, their shape and reach.
// RegistryName is the name under which its settings are stored.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Parameter.h"
#include "qor/records/metadata/Location.h"
#include "qor/records/metadata/MeasurementType.h"
#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/RobotMetaData.h"
#include "qor/records/metadata/StorageDimensions.h"

class MetaDataManager::Device : public MetaDataManagerBase {
    QOR_RECORD(Device)
    std::string Name;
    std::string Description;
    std::string HardwareManufacturer;
    std::string PreferredTab;  // one of PreferredTabs
    std::string RegistryName;
    bool HasBarcodeReader = true;
    bool DynamicLocations = false;
    std::vector<ObjectInstanceXMLMarshaller::Parameter> Parameters;
    std::vector<Location> Locations;
    std::vector<MeasurementType> MeasurementTypes;
    MetaDataManager::StorageDimensions StorageDimensions;
    MetaDataManager::RobotMetaData RobotMetaData;
    MetaDataManager::MiscAttributes MiscAttributes{};  // flags
    bool Ignore = false;
    bool IgnorePipettePlateInstanceOrder = false;
    bool IsDeviceUnsafe = false;
};
