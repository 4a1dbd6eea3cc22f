#include "qor/records/metadata/Device.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, Device,
    attribute("Name", &Device::Name),
    attribute("Description", &Device::Description),
    attribute("HardwareManufacturer", &Device::HardwareManufacturer).as("Hardware manufacturer"),
    attribute("PreferredTab", &Device::PreferredTab).as("Preferred tab"),
    attribute("RegistryName", &Device::RegistryName),
    attribute("HasBarcodeReader", &Device::HasBarcodeReader).as("Has barcode reader"),
    attribute("DynamicLocations", &Device::DynamicLocations).as("Dynamic locations"),
    list("Parameters", &Device::Parameters),
    list("Locations", &Device::Locations),
    list("MeasurementTypes", &Device::MeasurementTypes),
    child("StorageDimensions", &Device::StorageDimensions),
    child("RobotMetaData", &Device::RobotMetaData),
    enumAttribute("MiscAttributes", &Device::MiscAttributes).as("Miscellaneous attributes"),
    attribute("Ignore", &Device::Ignore),
    attribute("IgnorePipettePlateInstanceOrder", &Device::IgnorePipettePlateInstanceOrder),
    attribute("IsDeviceUnsafe", &Device::IsDeviceUnsafe))
