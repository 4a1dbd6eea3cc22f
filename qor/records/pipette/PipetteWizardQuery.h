// What the wizards of a pipetting device offer, and the labels of their
// fields. The default labels are part of the design.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/CherryPickData.h"

namespace PipetteXMLMarshaller {

class PipetteWizardQuery : public PipetteXMLMarshallerBase {
    QOR_RECORD(PipetteWizardQuery)
    bool ImplementsSerialDilution = false;
    bool ImplementsFillPlate = false;
    bool AllowAutoTipSelection = false;
    std::string PlateLabel = "Plate";
    std::string VolumeLabel = "Volume";
    std::string WellSelectionLabel = "Well selection";
    std::string AutoTipSelectionLabel = "Allow automatic selection";
    std::string MixInReservoirCommandName = "Wash Tips By Mixing";
    PipetteXMLMarshaller::CherryPickData CherryPickData;

    static constexpr const char SerialDilutionTaskName[] = "Serial Dilution";
    static constexpr const char FillPlateTaskName[] = "Fill Plate";

    // The four built-in tasks: serial dilution, fill plate, hit pick and
    // backfill, matched exactly.
    static bool IsBuiltInPipetteTask(const std::string &name);
};

}  // namespace PipetteXMLMarshaller
