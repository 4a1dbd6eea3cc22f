// How a device does hit picking (cherry picking), with the names of the
// built-in hit-pick task and its parameters.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/ModuleObjectDescription.h"
#include "qor/marshal/Record.h"

namespace PipetteXMLMarshaller {

// The kind of pipettor that picks; the integers are the device's.
enum HitPickPipettorType : int {};

// The unit of a pipettor's volumes: 1 is nanolitres, anything else microlitres.
enum PipettorVolumeUnits : int {
    VOLUME_UNITS_NANOLITRES = 1,
};

class CherryPickData : public PipetteXMLMarshallerBase {
    QOR_RECORD(CherryPickData)
    bool ImplementsCherryPicking = false;
    bool AllowCherryRoutineWizard = false;
    HitPickPipettorType PipettorType{};
    bool ParseIndividualTransfers = true;
    bool ZelkorCalculateVolumeChange = false;
    double MinVolume = 0.0;
    double MaxVolume = 0.0;
    bool InfoRequiresInitialization = false;
    PipettorVolumeUnits VolumeUnits{};
    std::vector<int> AllowableWells;
    std::vector<std::string> SourceLabware;
    std::vector<std::string> DestinationLabware;
    std::vector<std::string> SelectedColumns;
    ObjectInstanceXMLMarshaller::ModuleObjectDescription ModuleObjectDescription;  // further settings

    static constexpr const char HitPickTaskName[] = "Hit Pick Replication";
    static constexpr const char BackfillTaskName[] = "Dilute To Final Volume";
    static constexpr const char BuiltInCategory[] = "Built-in Parameters";
    static constexpr const char SourcePlate[] = "Source";
    static constexpr const char DestinationPlate[] = "Destination";
    static constexpr const char ChooseInput[] = "Choose input file at protocol start";
    static constexpr const char InputFile[] = "Input file";
    static constexpr const char FormatFile[] = "Format file";
    static constexpr const char OutputFile[] = "Output file";
    static constexpr const char HeadMode[] = "Head mode";
    static constexpr const char Transfers[] = "Transfers";
    static constexpr const char SourcePlateLabware[] = "SourcePlateLabware";
    static constexpr const char DestinationPlateLabware[] = "DestinationPlateLabware";
    static constexpr const char SourceBarcodeSide[] = "SourceBarcodeSide";

    // 1000 for nanolitres, 1 for anything else.
    static double GetVolumeUnitMultiplier(PipettorVolumeUnits units);
    // "nL" for nanolitres, else "µL" in the suite's single-byte text (0xB5 'L').
    static std::string GetVolumeUnitString(PipettorVolumeUnits units);
    // Source or destination labware is listed.
    bool HasCustomLabware() const { return !SourceLabware.empty() || !DestinationLabware.empty(); }
};

}  // namespace PipetteXMLMarshaller
