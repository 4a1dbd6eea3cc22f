#include "qor/records/metadata/IsStackFull.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IsStackFull,
    attribute("LocationName", &IsStackFull::LocationName).as("Location Name"),
    attribute("IncomingPlateName", &IsStackFull::IncomingPlateName).as("Incoming Plate Name"))
