#include "qor/records/hooks/ScriptPlateError.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(ScriptPlateError,
    attribute("Message", &ScriptPlateError::Message),
    attribute("PlateName", &ScriptPlateError::PlateName).as("Plate name"),
    attribute("Labware", &ScriptPlateError::Labware),
    attribute("NorthSideBarcode", &ScriptPlateError::NorthSideBarcode),
    attribute("SouthSideBarcode", &ScriptPlateError::SouthSideBarcode),
    attribute("WestSideBarcode", &ScriptPlateError::WestSideBarcode),
    attribute("EastSideBarcode", &ScriptPlateError::EastSideBarcode))

}  // namespace HooksPluginXMLMarshaller
