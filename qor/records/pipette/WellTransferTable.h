// The one field table of the two transfer records. For their sources only:
// it brings in the record-definition machinery.
#pragma once

#include <tuple>

#include "qor/marshal/RecordDefinition.h"
#include "qor/records/pipette/WellTransferFields.h"

namespace PipetteXMLMarshaller {

constexpr auto WellTransferTable() {
    using namespace qor::record::dsl;
    return std::tuple{
        child("SourceWell", &WellTransferFields::SourceWell),
        child("DestinationWell", &WellTransferFields::DestinationWell),
        attribute("Volume", &WellTransferFields::Volume),
    };
}

}  // namespace PipetteXMLMarshaller
