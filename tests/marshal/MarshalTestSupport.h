// Small helpers the marshal tests share.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "qor/marshal/ObjectInstance.h"

namespace marshal_test {

// The lines of a written document between the root's opening and closing
// tags, joined by '\n': the record's own text.
inline std::string RecordText(const std::string &document) {
    const std::size_t first = document.find('\n');
    const std::size_t second = first == std::string::npos ? first : document.find('\n', first + 1);
    const std::size_t last = document.rfind('\n');
    if (second == std::string::npos || last <= second) return std::string();
    return document.substr(second + 1, last - second - 1);
}

// One Parameter as a row: category, name, type, value, description.
struct ParameterRow {
    std::string category;
    std::string name;
    int type;
    std::string value;
    std::string description;
    bool operator==(const ParameterRow &) const = default;
};

inline std::vector<ParameterRow> Rows(const ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
    std::vector<ParameterRow> rows;
    for (const auto &category : instance.BaseObjectDescription.Categories) {
        for (const auto &parameter : category.Parameters) {
            rows.push_back({category.Name, parameter.Name, parameter.Type, parameter.Value, parameter.Description});
        }
    }
    return rows;
}

// The rows a record shows of itself as a property bag.
template <class Record>
std::vector<ParameterRow> RowsOf(const Record &record) {
    ObjectInstanceXMLMarshaller::ObjectInstance instance;
    record.ToObjectInstance(instance);
    return Rows(instance);
}

// A fresh directory under the system's temporary folder, removed with the object.
class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qor-marshal-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    const std::filesystem::path &path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace marshal_test
