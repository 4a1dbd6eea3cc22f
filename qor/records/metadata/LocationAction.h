// Names a location and how it is to be made ready; the meaning of
// PrepareLocation is the device's.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::LocationAction : public MetaDataManagerBase {
    QOR_RECORD(LocationAction)
    std::string Name;
    int PrepareLocation = 0;
};
