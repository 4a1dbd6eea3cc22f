// A list of hit-pick transfers.
#pragma once

#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/CherryPickTransfer.h"

namespace PipetteXMLMarshaller {

class CherryPickTransfers : public PipetteXMLMarshallerBase {
    QOR_RECORD(CherryPickTransfers)
    std::vector<CherryPickTransfer> CherryTransfers;
};

}  // namespace PipetteXMLMarshaller
