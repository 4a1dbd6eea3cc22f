// The four sides of a plate were read. The sides stand north, south, east,
// west here, and north, south, west, east in every other hook record.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class BarCodeRead : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(BarCodeRead)
    std::string Path = NotSpecified;
    std::string NorthBarcode;
    std::string SouthBarcode;
    std::string EastBarcode;
    std::string WestBarcode;
    std::string PlateName;
    int InstanceNumber = 0;
    int DatabaseID = 0;
    std::string Plugin;
    std::string Labware;
    std::string Device;
    std::string Location;
};

}  // namespace HooksPluginXMLMarshaller
