// The protocol was aborted.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/PathEventFields.h"

namespace HooksPluginXMLMarshaller {

class Aborted : public HooksPluginXMLMarshallableObject, public PathEventFields {
    QOR_RECORD(Aborted)
};

}  // namespace HooksPluginXMLMarshaller
