// One element of a document of the dialect, held by value.
#pragma once

#include <list>
#include <map>
#include <string>

class XMLParser;
class XMLReader;

namespace qor {

// An element: what XMLParser::XMLNode names. A plain value: copying copies
// the whole subtree, moving steals it. Children live in a std::list, so a
// pointer to a child stays valid while siblings are added.
class XMLNodeData {
public:
    XMLNodeData() = default;
    // Copying, like destroying, walks the subtree without recursion, so any
    // depth that could be read can be copied and freed.
    XMLNodeData(const XMLNodeData &other);
    XMLNodeData(XMLNodeData &&) noexcept = default;
    XMLNodeData &operator=(const XMLNodeData &other);
    XMLNodeData &operator=(XMLNodeData &&) noexcept = default;
    ~XMLNodeData();

    // Empties attributes and children; name, text and closed stay.
    void Clear();

    std::string name;                              // as the tokeniser cut it
    std::string text;                              // character data inside, unescaped
    std::map<std::string, std::string> attributes; // unescaped values, bytewise key order
    std::list<XMLNodeData> children;
    bool closed = false;                           // the tag ended in "/>"

protected:
    // Builds a node from one tag as FindNextTag returns it, "<" through ">".
    // Throws XMLParserException code 5 when a key has no quoted value.
    explicit XMLNodeData(const std::string &tag);

    // True when this freshly parsed tag is "/" followed by open's name.
    bool ClosesNode(const XMLNodeData &open) const;

    friend class ::XMLParser;
    friend class ::XMLReader;
};

}  // namespace qor
