// What a label printer can print: its formats.
#pragma once

#include <vector>

#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/PrinterFormatMetaData.h"

class MetaDataManager::PrinterMetaData : public MetaDataManagerBase {
    QOR_RECORD(PrinterMetaData)
    std::vector<MetaDataManager::PrinterFormatMetaData> PrinterFormatMetaData;
};
