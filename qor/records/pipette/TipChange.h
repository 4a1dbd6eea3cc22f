// One operation on tips. WellSelection holds the text of a WellSelection
// record. TipCapacity is written in full but read as a whole number, as the
// scheduler has always read it: 12.5 comes back as 12.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace PipetteXMLMarshaller {

// What is done with tips; the integers are the scheduler's.
enum TipChangeType : int {
    TIP_CHANGE_TYPE_1 = 1,
};

class TipChange : public PipetteXMLMarshallerBase {
    QOR_RECORD(TipChange)
    TipChangeType Operation = TIP_CHANGE_TYPE_1;
    double TipCapacity = 0.0;
    bool AutoSelection = false;
    std::string WellSelection;
    std::string Plate;
    bool MarkTipsOffAsUsed = true;
};

}  // namespace PipetteXMLMarshaller
