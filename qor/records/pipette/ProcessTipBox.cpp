// The record's fields; CopyTipStates stands in TipStateCopy.cpp.
#include "qor/records/pipette/ProcessTipBox.h"

#include "qor/marshal/RecordDefinition.h"

namespace PipetteXMLMarshaller {

QOR_DEFINE_RECORD(ProcessTipBox,
    attribute("ProcessName", &ProcessTipBox::ProcessName),
    child("TipBoxState", &ProcessTipBox::TipBoxState),
    list("Instances", &ProcessTipBox::Instances),
    attribute("IsSingleInstance", &ProcessTipBox::IsSingleInstance).as("Is single instance"))

}  // namespace PipetteXMLMarshaller
