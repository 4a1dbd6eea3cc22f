#include "qor/records/pipette/PipetteTechniques.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(PipetteTechniques,
    list("HighLevelTechniques", &PipetteTechniques::HighLevelTechniques),
    list("LowLevelCommands", &PipetteTechniques::LowLevelCommands))

}  // namespace PipetteXMLMarshaller
