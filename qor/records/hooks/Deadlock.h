// The scheduler found a deadlock.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/PathEventFields.h"

namespace HooksPluginXMLMarshaller {

class Deadlock : public HooksPluginXMLMarshallableObject, public PathEventFields {
    QOR_RECORD(Deadlock)
};

}  // namespace HooksPluginXMLMarshaller
