// The fields of Query, Response and Update: a category that names the
// subject, who sends and who is to receive, and free parameters that sender
// and receiver agree on. Each of those records derives from this plain
// struct as well as from MetaDataManagerBase; they differ in their element
// names, their document types and their constants.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Parameter.h"

namespace qor::metadata {

struct MessageFields {
    std::string Category;
    std::string Source;
    std::string Destination;
    std::vector<ObjectInstanceXMLMarshaller::Parameter> Parameters;
};

}  // namespace qor::metadata
