// Carries a plate from a pickup to a drop-off. Each end is a location and a
// lean location with a height offset; PayloadThickness, PlateHasLid and
// PlateSealed describe the load.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_Move_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_Move_Input)
    std::string PickupDeviceName;
    std::string PickupLocationName;
    std::string PickupLocation;
    std::string PickupLeanLocation;
    double PickupLocationOffset = 0.0;
    std::string DropoffLocation;
    std::string DropoffLeanLocation;
    double DropoffLocationOffset = 0.0;
    std::string Labware;
    double PayloadThickness = 0.0;
    bool PlateHasLid = false;
    bool PlateSealed = false;
};
