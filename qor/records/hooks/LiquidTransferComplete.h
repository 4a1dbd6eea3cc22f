// One liquid transfer ended. Its keys alone carry a type prefix (s string,
// i integer, f a double in spite of the letter); the Parameter names drop it.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class LiquidTransferComplete : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(LiquidTransferComplete)
    std::string sTimestamp;
    std::string sNorthSideBarcode;
    std::string sSouthSideBarcode;
    std::string sWestSideBarcode;
    std::string sEastSideBarcode;
    int iQuadrant = 0;
    double fVolume = 0.0;
    std::string sPlate;
    std::string sDevice;
    int iRow = 0;
    int iColumn = 0;
    std::string sWellDescription;
    std::string Path = NotSpecified;
};

}  // namespace HooksPluginXMLMarshaller
