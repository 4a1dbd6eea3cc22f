#include "qor/records/metadata/RobotMetaData.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, RobotMetaData,
    attribute("ReachesExternalLocations", &RobotMetaData::ReachesExternalLocations))
