// A pipette head as a device reports it: its mode and the volume range it
// handles. Lorvanic is a feature flag of a head type.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/PipetteHeadMode.h"

namespace PipetteXMLMarshaller {

class PipetteHead : public PipetteXMLMarshallerBase {
    QOR_RECORD(PipetteHead)
    std::string Name;
    PipetteXMLMarshaller::PipetteHeadMode PipetteHeadMode;
    double MaxRange = 50.0;
    double MinRange = 0.0;
    bool HasTips = true;
    bool Disposable = true;
    bool Lorvanic = true;

    // Reads a head of the older form, whose Channels attribute stood on the
    // head itself, into head's mode; false when node has no Channels. An old
    // column or row head becomes the last column or row of the 96 or 384
    // grid, except on the two heads that are such columns by nature, which
    // head's Name tells (read head from node first).
    static bool IsHeadUpgraded(const XMLParser::XMLNode &node, PipetteHead &head);
};

}  // namespace PipetteXMLMarshaller
