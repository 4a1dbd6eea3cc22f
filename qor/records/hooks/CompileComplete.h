// A protocol was compiled, with the counts of its errors and warnings.
#pragma once

#include <string>

#include "qor/marshal/Record.h"
#include "qor/records/hooks/NotSpecified.h"

namespace HooksPluginXMLMarshaller {

class CompileComplete : public HooksPluginXMLMarshallableObject {
    QOR_RECORD(CompileComplete)
    std::string Path = NotSpecified;
    int Errors = 0;
    int Warnings = 0;
};

}  // namespace HooksPluginXMLMarshaller
