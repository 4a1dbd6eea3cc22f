// The techniques a pipetting device offers: high-level ones, each a category
// of Parameters, and its low-level commands.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/metadata/Command.h"
#include "qor/records/pipette/HighLevelPipetteTechnique.h"

namespace PipetteXMLMarshaller {

class PipetteTechniques : public PipetteXMLMarshallerBase {
    QOR_RECORD(PipetteTechniques)
    std::vector<HighLevelPipetteTechnique> HighLevelTechniques;
    std::vector<MetaDataManager::Command> LowLevelCommands;
};

}  // namespace PipetteXMLMarshaller
