// A process of the protocol begins on a plate.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/ProcessEventFields.h"

namespace HooksPluginXMLMarshaller {

class ProcessStarting : public HooksPluginXMLMarshallableObject, public ProcessEventFields {
    QOR_RECORD(ProcessStarting)
};

}  // namespace HooksPluginXMLMarshaller
