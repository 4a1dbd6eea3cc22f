// The tokeniser's two passes in linear time. Internal to the XML layer.
//
// The dialect's rules are phrased as erasing the front of the buffer and
// searching again from position 0; these functions keep offsets instead and
// give the same results, the same exceptions and the same buffer contents.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "qor/xml/XMLNode.h"

namespace qor::xmlscan {

// First occurrence of needle (which begins with '<' and a rarer byte) at or
// after from, or npos.
std::size_t FindTag(std::string_view s, std::string_view needle, std::size_t from);

// Removes every startTag .. endTag span, the way repeated "find the first
// startTag, find its endTag, erase, start over" would. Throws code 4
// ("XMLParser::Discard") when a span has no endTag before the next
// startTag; the buffer then holds what the erasing version would hold.
void DiscardSpans(std::string &buffer, std::string_view startTag, std::string_view endTag);

// The same, reading `in` and leaving the result in `out` (which must not be
// `in`'s storage). On a throw `out` holds what the buffer would hold.
void DiscardSpansInto(std::string_view in, std::string &out, std::string_view startTag,
                      std::string_view endTag);

// Walks tags from the front of a text.
class TagScanner {
public:
    explicit TagScanner(std::string_view text) : text_(text) {}

    // The next tag, '<' through '>', or an empty view when no '<' is left
    // (then nothing moves and nothing is appended). The text before the tag,
    // unescaped, is appended to textOwner's text when it is not null. White
    // space after the tag is skipped. Throws code 4 ("XMLParser::FindNextTag")
    // when another '<' or the end comes before the '>'.
    std::string_view Next(XMLNodeData *textOwner);

    // How much of the text has been consumed.
    std::size_t Position() const { return position_; }

private:
    std::string_view text_;
    std::size_t position_ = 0;
};

}  // namespace qor::xmlscan
