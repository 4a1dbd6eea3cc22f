#include "qor/records/pipette/PipetteWizardQuery.h"

#include <algorithm>
#include <string_view>

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(PipetteWizardQuery,
    attribute("ImplementsSerialDilution", &PipetteWizardQuery::ImplementsSerialDilution)
        .as("Implements serial dilution"),
    attribute("ImplementsFillPlate", &PipetteWizardQuery::ImplementsFillPlate).as("Implements fill plate"),
    attribute("AllowAutoTipSelection", &PipetteWizardQuery::AllowAutoTipSelection).as("Allows automatic tip selection"),
    attribute("PlateLabel", &PipetteWizardQuery::PlateLabel).as("Plate label"),
    attribute("VolumeLabel", &PipetteWizardQuery::VolumeLabel).as("Volume label"),
    attribute("WellSelectionLabel", &PipetteWizardQuery::WellSelectionLabel).as("Well-selection label"),
    attribute("AutoTipSelectionLabel", &PipetteWizardQuery::AutoTipSelectionLabel).as("Automatic tip selection label"),
    attribute("MixInReservoirCommandName", &PipetteWizardQuery::MixInReservoirCommandName)
        .as("Mix in reservoir command name"),
    child("CherryPickData", &PipetteWizardQuery::CherryPickData))

bool PipetteWizardQuery::IsBuiltInPipetteTask(const std::string &name) {
    constexpr std::string_view builtIn[] = {SerialDilutionTaskName, FillPlateTaskName,
                                            PipetteXMLMarshaller::CherryPickData::HitPickTaskName,
                                            PipetteXMLMarshaller::CherryPickData::BackfillTaskName};
    return std::find(std::begin(builtIn), std::end(builtIn), name) != std::end(builtIn);
}

}  // namespace PipetteXMLMarshaller
