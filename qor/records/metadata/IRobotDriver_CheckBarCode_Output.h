// The barcode read.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_CheckBarCode_Output : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_CheckBarCode_Output)
    std::string BarCode;
};
