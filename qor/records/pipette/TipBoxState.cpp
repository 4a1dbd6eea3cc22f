// The record's fields; ConvertToSingleBarrelHeadMode stands in
// TipBoxStateConversion.cpp.
#include "qor/records/pipette/TipBoxState.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(TipBoxState,
    child("PipetteHeadMode", &TipBoxState::PipetteHeadMode),
    list("TipPositions", &TipBoxState::TipPositions),
    attribute("NumWells", &TipBoxState::NumWells).as("Number of wells"))

}  // namespace PipetteXMLMarshaller
