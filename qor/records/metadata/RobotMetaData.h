// What a robot device adds to its Device: whether it reaches locations outside
// its own.
#pragma once

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::RobotMetaData : public MetaDataManagerBase {
    QOR_RECORD(RobotMetaData)
    bool ReachesExternalLocations = true;
};
