#include "qor/records/hooks/CompileComplete.h"

#include "qor/marshal/RecordDefinition.h"

namespace HooksPluginXMLMarshaller {

QOR_DEFINE_RECORD(CompileComplete,
    attribute("Path", &CompileComplete::Path),
    attribute("Errors", &CompileComplete::Errors),
    attribute("Warnings", &CompileComplete::Warnings))

}  // namespace HooksPluginXMLMarshaller
