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
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start <= document.size()) {
        const std::size_t end = document.find('\n', start);
        lines.push_back(document.substr(start, end == std::string::npos ? std::string::npos : end - start));
        if (end == std::string::npos) break;
        start = end + 1;
    }
    std::string text;
    for (std::size_t i = 2; i + 1 < lines.size(); ++i) {
        if (!text.empty()) text += '\n';
        text += lines[i];
    }
    return text;
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
