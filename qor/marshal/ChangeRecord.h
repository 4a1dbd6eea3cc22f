// One value that CopyParameters changed.
#pragma once

#include <string>

namespace ObjectInstanceXMLMarshaller {

struct ChangeRecord {
    std::string CategoryName;
    std::string ParameterName;
    std::string OldValue;
    std::string NewValue;

    bool operator==(const ChangeRecord &) const = default;
};

}  // namespace ObjectInstanceXMLMarshaller
