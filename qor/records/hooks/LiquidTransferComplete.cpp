#include "qor/records/hooks/LiquidTransferComplete.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(LiquidTransferComplete,
    attribute("sTimestamp", &LiquidTransferComplete::sTimestamp).as("Timestamp"),
    attribute("sNorthSideBarcode", &LiquidTransferComplete::sNorthSideBarcode).as("NorthSideBarcode"),
    attribute("sSouthSideBarcode", &LiquidTransferComplete::sSouthSideBarcode).as("SouthSideBarcode"),
    attribute("sWestSideBarcode", &LiquidTransferComplete::sWestSideBarcode).as("WestSideBarcode"),
    attribute("sEastSideBarcode", &LiquidTransferComplete::sEastSideBarcode).as("EastSideBarcode"),
    attribute("iQuadrant", &LiquidTransferComplete::iQuadrant).as("Quadrant"),
    attribute("fVolume", &LiquidTransferComplete::fVolume).as("Volume"),
    attribute("sPlate", &LiquidTransferComplete::sPlate).as("Plate"),
    attribute("sDevice", &LiquidTransferComplete::sDevice).as("Device"),
    attribute("iRow", &LiquidTransferComplete::iRow).as("Row"),
    attribute("iColumn", &LiquidTransferComplete::iColumn).as("Column"),
    attribute("sWellDescription", &LiquidTransferComplete::sWellDescription).as("WellSelectionDescription"),
    attribute("Path", &LiquidTransferComplete::Path))

}  // namespace HooksPluginXMLMarshaller
