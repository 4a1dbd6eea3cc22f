// A script reported an error about a plate.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class ScriptPlateError : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(ScriptPlateError)
    std::string Message;
    std::string PlateName;
    std::string Labware;
    std::string NorthSideBarcode;
    std::string SouthSideBarcode;
    std::string WestSideBarcode;
    std::string EastSideBarcode;
};

}  // namespace HooksPluginXMLMarshaller
