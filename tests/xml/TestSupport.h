// Helpers shared by the XML tests: access to the protected tokeniser, a
// canonical dump of a tree, and a scratch folder on disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "qor/xml.h"

namespace xmltest {

// A reader whose tokeniser steps the tests may call.
class OpenReader : public XMLReaderAndWriter {
public:
    OpenReader() : XMLReaderAndWriter("MetaData", "1.0") {}
    using XMLParser::Discard;
    using XMLParser::DiscardComments;
    using XMLParser::DiscardDoctype;
    using XMLParser::FindNextTag;
};

// A node built from one tag, and the closing test, both protected.
class TagNode : public qor::XMLNodeData {
public:
    explicit TagNode(const std::string &tag) : XMLNodeData(tag) {}
    using XMLNodeData::ClosesNode;
};

// The tree as text: every field of every node, bytes made visible.
std::string Dump(const qor::XMLNodeData &node);

// What an operation threw, as one comparable string, or nullopt.
std::optional<std::string> Describe(const XMLParserException &e);

template <typename F>
std::optional<std::string> Failure(F &&operation) {
    try {
        operation();
    } catch (const XMLParserException &e) {
        return Describe(e);
    }
    return std::nullopt;
}

// A fresh folder under the system's temporary folder, removed afterwards.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    const std::filesystem::path &path() const { return path_; }
    std::string operator/(const std::string &name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

std::string ReadFile(const std::string &path);
void WriteFile(const std::string &path, const std::string &contents);

}  // namespace xmltest
