// The record's fields; the tip state copies and conversions stand in
// TipStateCopy.cpp and TipStateObjectInstance.cpp.
#include "qor/records/pipette/ProcessTipBoxes.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(ProcessTipBoxes,
    attribute("Protocol", &ProcessTipBoxes::Protocol),
    attribute("SavedFilename", &ProcessTipBoxes::SavedFilename).as("Saved filename"),
    list("Processes", &ProcessTipBoxes::Processes))

bool ProcessTipBoxes::AreProcessesEqual(const ProcessTipBoxes &first, const ProcessTipBoxes &second, bool) {
    return first.Protocol == second.Protocol;
}

}  // namespace PipetteXMLMarshaller
