#include "qor/records/pipette/CherryPickData.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(CherryPickData,
    attribute("ImplementsCherryPicking", &CherryPickData::ImplementsCherryPicking).as("Implements cherry picking"),
    attribute("AllowCherryRoutineWizard", &CherryPickData::AllowCherryRoutineWizard).as("Allow cherry routine wizard"),
    enumAttribute("PipettorType", &CherryPickData::PipettorType).as("Pipettor type"),
    attribute("ParseIndividualTransfers", &CherryPickData::ParseIndividualTransfers).as("Parse individual transfers"),
    attribute("ZelkorCalculateVolumeChange", &CherryPickData::ZelkorCalculateVolumeChange)
        .as("Zelkor calculates volume change"),
    attribute("MinVolume", &CherryPickData::MinVolume).as("Minimum volume"),
    attribute("MaxVolume", &CherryPickData::MaxVolume).as("Maximum volume"),
    attribute("InfoRequiresInitialization", &CherryPickData::InfoRequiresInitialization)
        .as("Info requires initialization"),
    enumAttribute("VolumeUnits", &CherryPickData::VolumeUnits).as("Volume units"),
    list("AllowableWells", &CherryPickData::AllowableWells),
    list("SourceLabware", &CherryPickData::SourceLabware),
    list("DestinationLabware", &CherryPickData::DestinationLabware),
    list("SelectedColumns", &CherryPickData::SelectedColumns),
    child("ModuleObjectDescription", &CherryPickData::ModuleObjectDescription))

double CherryPickData::GetVolumeUnitMultiplier(PipettorVolumeUnits units) {
    return units == VOLUME_UNITS_NANOLITRES ? 1000.0 : 1.0;
}

std::string CherryPickData::GetVolumeUnitString(PipettorVolumeUnits units) {
    return units == VOLUME_UNITS_NANOLITRES ? "nL" : "\xB5L";
}

}  // namespace PipetteXMLMarshaller
