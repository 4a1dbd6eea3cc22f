// A barcode did not match: BarcodeRead is what was read, OriginalBarcode
// what was expected, BarcodeSide the side, Action the reaction chosen.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class BarCodeMisread : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(BarCodeMisread)
    std::string Path = NotSpecified;
    std::string BarcodeRead;
    std::string OriginalBarcode;
    std::string BarcodeSide;
    std::string PlateName;
    int InstanceNumber = 0;
    int DatabaseID = 0;
    std::string Plugin;
    std::string Labware;
    std::string Device;
    std::string Location;
    int Action = 0;
};

}  // namespace HooksPluginXMLMarshaller
