#include "qor/records/hooks/BarCodeRead.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(BarCodeRead,
    attribute("Path", &BarCodeRead::Path),
    attribute("NorthBarcode", &BarCodeRead::NorthBarcode).as("North barcode"),
    attribute("SouthBarcode", &BarCodeRead::SouthBarcode).as("South barcode"),
    attribute("EastBarcode", &BarCodeRead::EastBarcode).as("East barcode"),
    attribute("WestBarcode", &BarCodeRead::WestBarcode).as("West barcode"),
    attribute("PlateName", &BarCodeRead::PlateName).as("Plate name"),
    attribute("InstanceNumber", &BarCodeRead::InstanceNumber).as("Instance number"),
    attribute("DatabaseID", &BarCodeRead::DatabaseID),
    attribute("Plugin", &BarCodeRead::Plugin),
    attribute("Labware", &BarCodeRead::Labware),
    attribute("Device", &BarCodeRead::Device),
    attribute("Location", &BarCodeRead::Location))

}  // namespace HooksPluginXMLMarshaller
