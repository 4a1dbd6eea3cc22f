// Takes a lid off a plate, or puts one back when IsRelid. The lid goes to
// LiddingLocation, lifted by RiseHeight; IntendedDropoffLocationOnNextMove
// lets the robot prepare its grip for the plate's next move.
#pragma once

#include <string>

#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::IRobotDriver_DelidRelid_Input : public MetaDataManagerBase {
    QOR_RECORD(IRobotDriver_DelidRelid_Input)
    bool IsRelid = false;
    LidderType Type{};
    std::string PickupDeviceName;
    std::string PickupLocationName;
    std::string PickupLocation;
    std::string PickupLeanLocation;
    double PickupLocationOffset = 0.0;
    std::string LiddingLocation;
    double RiseHeight = 0.0;
    std::string Labware;
    std::string IntendedDropoffLocationOnNextMove;
};
