// A protocol file was saved.
#pragma once

#include "qor/marshal/Record.h"
#include "qor/records/hooks/PathEventFields.h"

namespace HooksPluginXMLMarshaller {

class FileSaved : public HooksPluginXMLMarshallableObject, public PathEventFields {
    QOR_RECORD(FileSaved)
};

}  // namespace HooksPluginXMLMarshaller
