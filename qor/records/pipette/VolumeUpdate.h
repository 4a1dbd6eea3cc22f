// A change of volume in one well. The column's key is Col, not Column.
#pragma once

#include "qor/marshal/Record.h"

namespace PipetteXMLMarshaller {

class VolumeUpdate : public PipetteXMLMarshallerBase {
    QOR_RECORD(VolumeUpdate)
    double VolumeChange = 0.0;
    int Row = 0;
    int Col = 0;
};

}  // namespace PipetteXMLMarshaller
