// A protocol file was loaded.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/PathEventFields.h"

namespace HooksPluginXMLMarshaller {

class FileLoaded : public HooksPluginXMLMarshallableObject, public PathEventFields {
    QOR_RECORD(FileLoaded)
};

}  // namespace HooksPluginXMLMarshaller
