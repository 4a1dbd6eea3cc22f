#include "qor/records/metadata/IRobotDriver_DelidRelid_Input.h"

#include "qor/marshal/RecordDefinition.h"

QOR_DEFINE_RECORD_IN(MetaDataManager::, IRobotDriver_DelidRelid_Input,
    attribute("IsRelid", &IRobotDriver_DelidRelid_Input::IsRelid),
    enumAttribute("Type", &IRobotDriver_DelidRelid_Input::Type),
    attribute("PickupDeviceName", &IRobotDriver_DelidRelid_Input::PickupDeviceName),
    attribute("PickupLocationName", &IRobotDriver_DelidRelid_Input::PickupLocationName),
    attribute("PickupLocation", &IRobotDriver_DelidRelid_Input::PickupLocation),
    attribute("PickupLeanLocation", &IRobotDriver_DelidRelid_Input::PickupLeanLocation),
    attribute("PickupLocationOffset", &IRobotDriver_DelidRelid_Input::PickupLocationOffset),
    attribute("LiddingLocation", &IRobotDriver_DelidRelid_Input::LiddingLocation),
    attribute("RiseHeight", &IRobotDriver_DelidRelid_Input::RiseHeight),
    attribute("Labware", &IRobotDriver_DelidRelid_Input::Labware),
    attribute("IntendedDropoffLocationOnNextMove", &IRobotDriver_DelidRelid_Input::IntendedDropoffLocationOnNextMove))
