#include "qor/records/hooks/BarCodeMisread.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(BarCodeMisread,
    attribute("Path", &BarCodeMisread::Path),
    attribute("BarcodeRead", &BarCodeMisread::BarcodeRead).as("Barcode read"),
    attribute("OriginalBarcode", &BarCodeMisread::OriginalBarcode).as("Original barcode"),
    attribute("BarcodeSide", &BarCodeMisread::BarcodeSide).as("Barcode side"),
    attribute("PlateName", &BarCodeMisread::PlateName).as("Plate name"),
    attribute("InstanceNumber", &BarCodeMisread::InstanceNumber).as("Instance number"),
    attribute("DatabaseID", &BarCodeMisread::DatabaseID),
    attribute("Plugin", &BarCodeMisread::Plugin),
    attribute("Labware", &BarCodeMisread::Labware),
    attribute("Device", &BarCodeMisread::Device),
    attribute("Location", &BarCodeMisread::Location),
    attribute("Action", &BarCodeMisread::Action))

}  // namespace HooksPluginXMLMarshaller
