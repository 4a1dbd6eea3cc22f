// A document of the dialect: its own root element, the tokeniser and the
// serialiser.
#pragma once

#include <sstream>
#include <string>

#include "qor/xml/MD5Checksum.h"
#include "qor/xml/XMLConstants.h"
#include "qor/xml/XMLEscape.h"
#include "qor/xml/XMLNode.h"
#include "qor/xml/XMLParserException.h"

// The document object is its root element. Copyable and movable; the virtual
// base of XMLReader and XMLWriter, so XMLReaderAndWriter holds one document.
// An object belongs to one thread at a time, and even serialising writes to
// the tree (escaped attribute values are stored back).
class XMLParser : public qor::XMLNodeData {
public:
    using XMLNode = qor::XMLNodeData;

    // The root starts named "Unknown".
    XMLParser();

    // The document as text: with the "<?xml ...?>" header line when asked.
    // With escapeAttributes every attribute value of the tree is escaped in
    // place before it is written (the tree keeps the escaped values); without
    // it values are written as they stand. Text is always escaped on output
    // and never changed in the tree. Lines end in '\n'.
    void FillBuffer(std::string &out, bool escapeAttributes, bool withHeader);

    // MD5 of FillBuffer(escape, header) with the root's md5sum attribute set
    // to thirty-two '0's; the attribute is restored (or removed) afterwards.
    // Leaves every attribute value of the tree escaped once more, so call it
    // once on a tree of plain values.
    std::string GetMD5Sum();

protected:
    // Removes every startTag..endTag span from buffer; throws code 4 when a
    // span has no end before the next startTag. The buffer keeps its
    // half-consumed state on a throw.
    void Discard(std::string &buffer, const std::string &startTag, const std::string &endTag);
    void DiscardComments(std::string &buffer);  // "<!--" .. "-->"
    void DiscardDoctype(std::string &buffer);   // "<!DOCTYPE" .. ">"

    // Cuts the next tag off the buffer's front and returns it, "<" through
    // ">"; the text before it, unescaped, is appended to currentNode's text
    // when currentNode is not null. Returns "" and leaves everything alone
    // when the buffer holds no '<'. Throws code 4 on an unterminated tag.
    std::string FindNextTag(std::string &buffer, XMLNode *currentNode);

    // Writes node at depth tabs; see FillBuffer for escapeAttributes. No line
    // end follows the document's own closing tag.
    void WriteNodeToStream(std::ostringstream &stream, XMLNode &node, bool escapeAttributes,
                           int depth) const;
};
