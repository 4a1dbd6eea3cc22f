// A tip box that passes through a protocol as a plate. TipBoxState is the
// state of every instance as it enters the system, Instances the state of
// each instance apart; IsSingleInstance says the process has only the one.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"
#include "qor/records/pipette/TipBoxInstance.h"
#include "qor/records/pipette/TipBoxState.h"

namespace PipetteXMLMarshaller {

class ProcessTipBox : public PipetteXMLMarshallerBase {
    QOR_RECORD(ProcessTipBox)
    std::string ProcessName;
    PipetteXMLMarshaller::TipBoxState TipBoxState;
    std::vector<TipBoxInstance> Instances;
    bool IsSingleInstance = false;

    // target takes source's tip box state when both are the same process
    // with boxes of the same size. The flag has no effect.
    static void CopyTipStates(ProcessTipBox &target, const ProcessTipBox &source, bool flag);
};

}  // namespace PipetteXMLMarshaller
