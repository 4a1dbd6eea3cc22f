// One entry of a metadata file's change history.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Version : public MetaDataManagerBase {
    QOR_RECORD(Version)
    std::string Name;
    std::string Date;
    std::string Author;
    std::string Version_;
    std::string Company;
};
