// One field of a label format: its name and its value.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::PrinterFieldMetaData : public MetaDataManagerBase {
    QOR_RECORD(PrinterFieldMetaData)
    std::string Name;
    std::string Value;
};
