// The teachpoints of a robot as a document.
#pragma once

#include <vector>

#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/Teachpoint.h"

class MetaDataManager::TeachpointsData : public MetaDataManagerBase {
    QOR_RECORD(TeachpointsData)
    std::vector<Teachpoint> Teachpoints;
};
