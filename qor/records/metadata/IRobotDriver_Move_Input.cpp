#include "qor/records/metadata/IRobotDriver_Move_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_Move_Input,
    attribute("PickupDeviceName", &IRobotDriver_Move_Input::PickupDeviceName),
    attribute("PickupLocationName", &IRobotDriver_Move_Input::PickupLocationName),
    attribute("PickupLocation", &IRobotDriver_Move_Input::PickupLocation),
    attribute("PickupLeanLocation", &IRobotDriver_Move_Input::PickupLeanLocation),
    attribute("PickupLocationOffset", &IRobotDriver_Move_Input::PickupLocationOffset),
    attribute("DropoffLocation", &IRobotDriver_Move_Input::DropoffLocation),
    attribute("DropoffLeanLocation", &IRobotDriver_Move_Input::DropoffLeanLocation),
    attribute("DropoffLocationOffset", &IRobotDriver_Move_Input::DropoffLocationOffset),
    attribute("Labware", &IRobotDriver_Move_Input::Labware),
    attribute("PayloadThickness", &IRobotDriver_Move_Input::PayloadThickness),
    attribute("PlateHasLid", &IRobotDriver_Move_Input::PlateHasLid),
    attribute("PlateSealed", &IRobotDriver_Move_Input::PlateSealed))
