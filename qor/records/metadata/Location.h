// One place on a device where a plate can stand. Type says how it may be
// reached (a set of LocationType bits, named by LocationTypeNames), Group who
// may use it at the same time, Offset is a height offset and MaxStackHeight the
// highest stack it takes. A new location is of normal access, 460 high.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Location : public MetaDataManagerBase {
    QOR_RECORD(Location)
    std::string Name;
    LocationType Type = LOCATION_TYPE_NORMAL;
    ExclusivityType Group{};
    double Offset = 0.0;
    double MaxStackHeight = 460.0;
};
