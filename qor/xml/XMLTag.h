// Reading one tag into a node. Internal to the XML layer.
#pragma once

#include <string_view>

#include "qor/xml/XMLNode.h"

namespace qor::xmltag {

// The element name of a tag: from the first byte that is none of "< \r\n\t"
// to the next of " \r\n\t>". `rest` gets the position just past it.
std::string_view TagName(std::string_view tag, std::size_t &rest);

// Reads the attributes that follow position `rest` into node.attributes
// (replacing values of repeated keys) and sets node.closed. Throws
// XMLParserException code 5 naming the whole tag when a key has no quoted
// value; what was stored before the throw stays.
void ReadAttributes(std::string_view tag, std::size_t rest, XMLNodeData &node);

// The whole node: name, attributes, closed.
void ReadTag(std::string_view tag, XMLNodeData &node);

// True when `name` is "/" followed by openName.
inline bool NameCloses(std::string_view name, std::string_view openName) {
    return name.size() >= 2 && name[0] == '/' && name.substr(1) == openName;
}

}  // namespace qor::xmltag
