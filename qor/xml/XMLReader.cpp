// Reading a document: header checks, the root, then a stack of open
// elements fed tag by tag.
#include "qor/xml/XMLReader.h"

#include <cstring>
#include <vector>

#include "qor/xml/XMLScanner.h"
#include "qor/xml/XMLTag.h"

namespace {

[[noreturn]] void ThrowRead(int code, const std::string &message) {
    throw XMLParserException(code, "XMLReader::ReadFromBuffer",
                             "Unable to read the file: " + message);
}

// Comments and doctypes both open with "<!", and a buffer without one is
// read as it stands, with no copy.
bool MayHoldDiscardable(const std::string &buffer) {
    for (std::size_t at = 1; at < buffer.size(); ++at) {
        const void *bang = std::memchr(buffer.data() + at, '!', buffer.size() - at);
        if (!bang) return false;
        at = static_cast<const char *>(bang) - buffer.data();
        if (buffer[at - 1] == '<') return true;
    }
    return false;
}

}  // namespace

void XMLReader::ReadFromBuffer(const std::string &buffer, bool noHeader) {
    std::string work;
    std::string_view text = buffer;
    if (MayHoldDiscardable(buffer)) {
        qor::xmlscan::DiscardSpansInto(buffer, work, "<!--", "-->");
        if (qor::xmlscan::FindTag(work, "<!DOCTYPE", 0) != std::string::npos) {
            std::string withoutDoctype;
            qor::xmlscan::DiscardSpansInto(work, withoutDoctype, "<!DOCTYPE", ">");
            work.swap(withoutDoctype);
        }
        text = work;
    }
    qor::xmlscan::TagScanner scanner(text);

    std::string_view tag = scanner.Next(nullptr);
    if (tag.empty()) ThrowRead(2, "No XML tags found");
    if (!noHeader) {
        XMLNode header;
        qor::xmltag::ReadTag(tag, header);
        if (header.name != "?xml") ThrowRead(2, "?xml must be first tag");
        auto version = header.attributes.find(VERSION_ATTRIBUTE);
        if (version == header.attributes.end() || version->second != "1.0")
            ThrowRead(2, "XML version must be 1.0");
    }

    Clear();
    if (!noHeader) tag = scanner.Next(nullptr);
    if (tag.empty()) ThrowRead(3, "No root tag found");
    {
        // Built apart first: a bad root tag leaves the cleared document.
        XMLNode root;
        qor::xmltag::ReadTag(tag, root);
        static_cast<XMLNode &>(*this) = std::move(root);
    }
    if (closed) return;

    std::vector<XMLNode *> open;
    XMLNode *current = this;
    XMLNode closing;  // attributes of closing tags, read for their errors only
    for (;;) {
        tag = scanner.Next(current);
        if (tag.empty()) ThrowRead(4, "EOF with open tags");
        std::size_t rest = 0;
        std::string_view name = qor::xmltag::TagName(tag, rest);
        if (qor::xmltag::NameCloses(name, current->name)) {
            closing.attributes.clear();
            qor::xmltag::ReadAttributes(tag, rest, closing);
            if (open.empty()) {
                std::string_view trailing = scanner.Next(nullptr);
                if (!trailing.empty())
                    ThrowRead(2, "Unexpected ending tag: " + std::string(trailing));
                return;
            }
            current = open.back();
            open.pop_back();
            continue;
        }
        XMLNode &child = current->children.emplace_back();
        try {
            child.name.assign(name);
            qor::xmltag::ReadAttributes(tag, rest, child);
        } catch (...) {
            current->children.pop_back();
            throw;
        }
        if (!child.closed) {
            open.push_back(current);
            current = &child;
        }
    }
}
