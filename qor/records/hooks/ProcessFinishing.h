// A process of the protocol ends on a plate.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/ProcessEventFields.h"

namespace HooksPluginXMLMarshaller {

class ProcessFinishing : public HooksPluginXMLMarshallableObject, public ProcessEventFields {
    QOR_RECORD(ProcessFinishing)
};

}  // namespace HooksPluginXMLMarshaller
