// The document's text form. Internal to the XML layer.
#pragma once

#include <cstddef>
#include <string>

#include "qor/xml/XMLNode.h"

namespace qor::xmlwrite {

// Appends `node` at `depth` tabs in the dialect's layout. With
// escapeAttributes each attribute value is escaped in place in the tree
// before it is written. No line end follows `document`'s closing tag. When
// sumOffset is not null and `node` is the document, it gets the position in
// `out` of the value of the document's md5sum attribute (npos when absent).
// Iterative, so depth costs heap, not stack.
void AppendNode(std::string &out, XMLNodeData &node, bool escapeAttributes, int depth,
                const XMLNodeData *document, std::size_t *sumOffset = nullptr);

// The header line "<?xml version='1.0' encoding='ASCII' ?>" and its line end.
void AppendHeader(std::string &out);

}  // namespace qor::xmlwrite

namespace qor::xmlwrite {

// What the sum's place holds while the sum is taken: thirty-two '0's.
inline constexpr std::string_view MD5SUM_PLACEHOLDER = "00000000000000000000000000000000";

// The sum of `document` by the MD5 rule. `text` receives the hashed text
// (header, attribute values escaped in place in the tree, the placeholder
// in the sum's place) and `placeholderAt` the placeholder's position in it.
// The root's md5sum attribute is restored afterwards, or removed when it
// was absent or empty.
std::string SumDocument(XMLNodeData &document, std::string &text, std::size_t &placeholderAt);

}  // namespace qor::xmlwrite
