// The report of a finished transfer, sent under the update category
// "LiquidTransferComplete".
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/LiquidTransferPair.h"
#include "qor/records/pipette/PipetteHeadMode.h"

namespace PipetteXMLMarshaller {

class LiquidTransferCompleteUpdate : public PipetteXMLMarshallerBase {
    QOR_RECORD(LiquidTransferCompleteUpdate)
    std::string SourceLocation;
    std::string DestLocation;
    std::vector<LiquidTransferPair> WellsAndVolumes;
    PipetteXMLMarshaller::PipetteHeadMode PipetteHeadMode;
};

}  // namespace PipetteXMLMarshaller
