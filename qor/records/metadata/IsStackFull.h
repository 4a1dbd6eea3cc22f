// Asks whether the stack at a location has room for an incoming plate.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IsStackFull : public MetaDataManagerBase {
    QOR_RECORD(IsStackFull)
    std::string LocationName;
    std::string IncomingPlateName;
};
