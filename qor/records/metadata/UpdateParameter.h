// One name and value, as a document of its own.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::UpdateParameter : public MetaDataManagerBase {
    QOR_RECORD(UpdateParameter)
    std::string Name;
    std::string Value;
};
