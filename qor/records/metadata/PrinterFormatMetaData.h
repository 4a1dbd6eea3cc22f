// A named label format for one side of a plate, with its fields.
#pragma once

#include <string>
#include <vector>

#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/PrinterFieldMetaData.h"

class MetaDataManager::PrinterFormatMetaData : public MetaDataManagerBase {
    QOR_RECORD(PrinterFormatMetaData)
    std::string Name;
    std::string Side;
    std::vector<MetaDataManager::PrinterFieldMetaData> PrinterFieldMetaData;
};
