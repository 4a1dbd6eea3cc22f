// A named layout and its labware; a Command holds a list of them.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Layout : public MetaDataManagerBase {
    QOR_RECORD(Layout)
    std::string Name;
    std::string Labware;
};
