// Reads the barcode at a device's location, through a teachpoint.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_CheckBarCode_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_CheckBarCode_Input)
    std::string DeviceName;
    std::string LocationName;
    std::string Teachpoint;
    double OffsetHeight = 0.0;
};
