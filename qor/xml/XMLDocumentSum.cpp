// The MD5 rule: the sum of a document is the MD5 of its text with the sum's
// own place filled by thirty-two '0's.
#include "qor/xml/MD5Checksum.h"
#include "qor/xml/XMLConstants.h"
#include "qor/xml/XMLSerializer.h"

namespace qor::xmlwrite {

std::string SumDocument(XMLNodeData &document, std::string &text, std::size_t &placeholderAt) {
    auto &attributes = document.attributes;
    auto slot = attributes.find(MD5SUM_ATTRIBUTE);
    std::string remembered;
    if (slot == attributes.end()) {
        slot = attributes.emplace(MD5SUM_ATTRIBUTE, std::string()).first;
    } else {
        remembered.swap(slot->second);
    }
    slot->second.assign(MD5SUM_PLACEHOLDER);

    text.clear();
    AppendHeader(text);
    AppendNode(text, document, true, 0, &document, &placeholderAt);
    std::string sum = MD5Hex(text.data(), text.size());

    if (remembered.empty())
        attributes.erase(slot);
    else
        slot->second.swap(remembered);
    return sum;
}

}  // namespace qor::xmlwrite
