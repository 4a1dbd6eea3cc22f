// The scheduler asks whether a location may take a plate now, with all the
// device needs to judge: the device, location and robot, the labware, the
// task and its command, the plate and where it stands, and the storage slot
// concerned. PlateInstance is text in the document but shows as an integer.
#pragma once

#include <string>

#include "qor/records/metadata/Command.h"
#include "qor/records/metadata/MetaDataManager.h"
#include "qor/records/metadata/StorageLocation.h"

class MetaDataManager::LocationAvailable : public MetaDataManagerBase {
    QOR_RECORD(LocationAvailable)
    std::string Device;
    std::string Location;
    std::string Robot;
    std::string RobotObjectName;
    std::string Labware;
    std::string TaskName;
    std::string PlateName;
    std::string Name;
    std::string PlateInstance;
    std::string PlateLocation;
    std::string PlateDevice;
    bool IsSourceLocation = false;
    bool IsRelidding = false;
    bool IsSimulating = false;
    MetaDataManager::StorageLocation StorageLocation;
    MetaDataManager::Command Command;
};
