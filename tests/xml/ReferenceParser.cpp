#include "ReferenceParser.h"

#include <list>

namespace reference {
namespace {

const std::string kCharacters[] = {"&", "<", ">", "\"", "'"};
const std::string kEntities[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};

}  // namespace

std::string &Escape(std::string &text) {
    std::string result;
    std::size_t from = 0;
    for (;;) {
        std::size_t hit = text.find_first_of("&<>\"'", from);
        if (hit == std::string::npos) break;
        result += text.substr(from, hit - from);
        for (int i = 0; i < 5; ++i)
            if (text[hit] == kCharacters[i][0]) result += kEntities[i];
        from = hit + 1;
    }
    result += text.substr(from);
    text = result;
    return text;
}

std::string &Unescape(std::string &text) {
    std::string result;
    std::size_t copy = 0;
    for (;;) {
        std::size_t amp = text.find('&', copy);
        if (amp == std::string::npos) break;
        std::size_t best = std::string::npos;
        int row = -1;
        for (int i = 0; i < 5; ++i) {
            std::size_t at = text.find(kEntities[i], amp);
            if (at < best) {
                best = at;
                row = i;
            }
        }
        if (row < 0) break;
        result += text.substr(copy, best - copy);
        result += kCharacters[row];
        copy = best + kEntities[row].size();
    }
    result += text.substr(copy);
    text = result;
    return text;
}

void Discard(std::string &buffer, const std::string &startTag, const std::string &endTag) {
    for (;;) {
        std::size_t start = buffer.find(startTag);
        if (start == std::string::npos) return;
        std::size_t nextStart = buffer.find(startTag, start + 1);
        std::size_t end = buffer.find(endTag, start);
        if (end == std::string::npos || end > nextStart) {
            throw XMLParserException(
                4, "XMLParser::Discard",
                "Unable to discard the file: EOF while searching for end of comment near \r\n\"" +
                    buffer.substr(start, nextStart == std::string::npos ? std::string::npos
                                                                        : nextStart - start) +
                    "\"");
        }
        buffer.erase(start, end + endTag.size() - start);
    }
}

std::string FindNextTag(std::string &buffer, qor::XMLNodeData *currentNode) {
    std::size_t open = buffer.find('<');
    if (open == std::string::npos) return "";
    std::size_t nextOpen = buffer.find('<', open + 1);
    std::size_t close = buffer.find('>', open);
    if (close == std::string::npos || close > nextOpen) {
        throw XMLParserException(
            4, "XMLParser::FindNextTag",
            "Unable to Find Next Tag in the file: EOF while searching for end of tag near \r\n\"" +
                buffer.substr(open, nextOpen == std::string::npos ? std::string::npos
                                                                  : nextOpen - open) +
                "\"");
    }
    std::string tag = buffer.substr(open, close - open + 1);
    if (currentNode) {
        std::string before = buffer.substr(0, open);
        currentNode->text += Unescape(before);
    }
    std::size_t next = buffer.find_first_not_of("\r\n\t ", close + 1);
    if (next == std::string::npos)
        buffer.clear();
    else
        buffer.erase(0, next);
    return tag;
}

qor::XMLNodeData NodeFromTag(const std::string &tag) {
    qor::XMLNodeData node;
    std::string s = tag;
    std::size_t nameStart = s.find_first_not_of("< \r\n\t");
    std::size_t nameEnd = s.find_first_of(" \r\n\t>", nameStart);
    node.name = s.substr(nameStart, nameEnd - nameStart);
    s.erase(0, nameEnd);
    for (;;) {
        std::size_t keyStart = s.find_first_not_of(" \r\n\t");
        std::size_t keyEnd = s.find_first_of("= \r\n\t", keyStart);
        if (keyEnd == std::string::npos) break;
        std::string key = s.substr(keyStart, keyEnd - keyStart);
        s.erase(0, keyEnd);
        std::size_t quote = s.find_first_of("\"'");
        std::size_t closeQuote =
            quote == std::string::npos ? std::string::npos : s.find(s[quote], quote + 1);
        if (closeQuote == std::string::npos) {
            throw XMLParserException(5, "XMLParser::XMLNode::XMLNode",
                                     "Unable to create a node in the file.  \r\nAn attribute key "
                                     "was found but the quoted value was missing : " +
                                         tag);
        }
        std::string value = s.substr(quote + 1, closeQuote - quote - 1);
        s.erase(0, closeQuote + 1);
        node.attributes[key] = Unescape(value);
    }
    node.closed = tag.size() >= 2 && tag.compare(tag.size() - 2, 2, "/>") == 0;
    return node;
}

static void Fail(int code, const std::string &message) {
    throw XMLParserException(code, "XMLReader::ReadFromBuffer",
                             "Unable to read the file: " + message);
}

void ReadFromBuffer(qor::XMLNodeData &document, const std::string &input, bool noHeader) {
    std::string buffer = input;
    Discard(buffer, "<!--", "-->");
    Discard(buffer, "<!DOCTYPE", ">");
    std::string tag = FindNextTag(buffer, nullptr);
    if (tag.empty()) Fail(2, "No XML tags found");
    if (!noHeader) {
        qor::XMLNodeData header = NodeFromTag(tag);
        if (header.name != "?xml") Fail(2, "?xml must be first tag");
        std::string version;
        if (header.attributes.count("version")) version = header.attributes["version"];
        if (version != "1.0") Fail(2, "XML version must be 1.0");
    }
    document.Clear();
    if (!noHeader) tag = FindNextTag(buffer, nullptr);
    if (tag.empty()) Fail(3, "No root tag found");
    document = NodeFromTag(tag);
    if (document.closed) return;
    std::list<qor::XMLNodeData *> stack;
    qor::XMLNodeData *current = &document;
    for (;;) {
        tag = FindNextTag(buffer, current);
        if (tag.empty()) Fail(4, "EOF with open tags");
        qor::XMLNodeData n = NodeFromTag(tag);
        bool closes = n.name.size() >= 2 && n.name[0] == '/' && n.name.substr(1) == current->name;
        if (closes) {
            if (stack.empty()) {
                tag = FindNextTag(buffer, nullptr);
                if (!tag.empty()) Fail(2, "Unexpected ending tag: " + tag);
                return;
            }
            current = stack.back();
            stack.pop_back();
        } else {
            current->children.push_back(n);
            if (!n.closed) {
                stack.push_back(current);
                current = &current->children.back();
            }
        }
    }
}

}  // namespace reference
