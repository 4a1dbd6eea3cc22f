// The user chose a button of the scheduler's pause dialog; ButtonName is
// its caption.
#pragma once

#include <string>

#include "qor/marshal/Record.h"

namespace HooksPluginXMLMarshaller {

class PauseSchedulerOptionSelected : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(PauseSchedulerOptionSelected)
    std::string ButtonName;
};

}  // namespace HooksPluginXMLMarshaller
