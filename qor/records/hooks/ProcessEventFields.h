// The fields of ProcessStarting and ProcessFinishing: a process of the protocol
// on a plate.
// Each of those records derives from this plain struct as well as from its
// family base; the records differ in their element names alone.
#pragma once

#include <string>

#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

struct ProcessEventFields {
    std::string ProcessName;
    std::string Plugin;
    std::string Labware;
    int TaskCount = 0;
    std::string NorthSideBarcode;
    std::string SouthSideBarcode;
    std::string WestSideBarcode;
    std::string EastSideBarcode;
    std::string PlateName;
    unsigned int InstanceNumber = 0;
    int DatabaseID = 0;
    std::string ProtocolPath;
    std::string Path = NotSpecified;
    int ProtocolType = 0;
};

}  // namespace HooksPluginXMLMarshaller
