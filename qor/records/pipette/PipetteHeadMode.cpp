// The record's fields; its logic stands in the PipetteHeadMode*.cpp files
// beside this one.
#include "qor/records/pipette/PipetteHeadMode.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(PipetteHeadMode,
    enumAttribute("Channels", &PipetteHeadMode::Channels),
    attribute("RowCount", &PipetteHeadMode::RowCount).as("Row count"),
    attribute("ColumnCount", &PipetteHeadMode::ColumnCount).as("Column count"),
    enumAttribute("SubsetType", &PipetteHeadMode::SubsetType).as("Subset type"),
    enumAttribute("SubsetConfig", &PipetteHeadMode::SubsetConfig).as("Subset configuration"),
    enumAttribute("TipType", &PipetteHeadMode::TipType).as("Tip Type").notCompared())

}  // namespace PipetteXMLMarshaller
