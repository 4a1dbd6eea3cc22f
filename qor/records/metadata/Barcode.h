// One barcode text; element and attribute share the name.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Barcode : public MetaDataManagerBase {
    QOR_RECORD(Barcode)
    std::string Barcode_;
};
