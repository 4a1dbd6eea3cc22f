// The one field of Aborted, Deadlock, FileLoaded and FileSaved.
// Each of those records derives from this plain struct as well as from its
// family base; the records differ in their element names alone.
#pragma once

#include <string>

#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

struct PathEventFields {
    std::string Path = NotSpecified;
};

}  // namespace HooksPluginXMLMarshaller
