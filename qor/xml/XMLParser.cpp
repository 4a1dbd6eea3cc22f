// The document object: its tokeniser entry points and its text form.
#include "qor/xml/XMLParser.h"

#include "qor/xml/XMLScanner.h"
#include "qor/xml/XMLSerializer.h"

XMLParser::XMLParser() { name = "Unknown"; }

// Written straight into `out`, whose capacity a caller writing record after
// record keeps reusing.
void XMLParser::FillBuffer(std::string &out, bool escapeAttributes, bool withHeader) {
    out.clear();
    if (withHeader) qor::xmlwrite::AppendHeader(out);
    qor::xmlwrite::AppendNode(out, *this, escapeAttributes, 0, this);
}

std::string XMLParser::GetMD5Sum() {
    std::string text;
    std::size_t placeholderAt = 0;
    return qor::xmlwrite::SumDocument(*this, text, placeholderAt);
}

void XMLParser::Discard(std::string &buffer, const std::string &startTag,
                        const std::string &endTag) {
    qor::xmlscan::DiscardSpans(buffer, startTag, endTag);
}

void XMLParser::DiscardComments(std::string &buffer) {
    qor::xmlscan::DiscardSpans(buffer, "<!--", "-->");
}

void XMLParser::DiscardDoctype(std::string &buffer) {
    qor::xmlscan::DiscardSpans(buffer, "<!DOCTYPE", ">");
}

std::string XMLParser::FindNextTag(std::string &buffer, XMLNode *currentNode) {
    qor::xmlscan::TagScanner scanner(buffer);
    std::string tag(scanner.Next(currentNode));
    buffer.erase(0, scanner.Position());
    return tag;
}

void XMLParser::WriteNodeToStream(std::ostringstream &stream, XMLNode &node, bool escapeAttributes,
                                  int depth) const {
    std::string text;
    qor::xmlwrite::AppendNode(text, node, escapeAttributes, depth < 0 ? 0 : depth, this);
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}
