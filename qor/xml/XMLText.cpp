// EscapeXML, UnescapeXML and the append forms the parser and writer use.
#include "qor/xml/XMLText.h"

#include <cstring>

#include "qor/xml/XMLEscape.h"

namespace qor::xmltext {
namespace {

// The entity table, in the order that decides UnescapeXML's choice.
struct EntityRow {
    char character;
    std::string_view entity;
};
constexpr EntityRow kEntities[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&apos;"},
};
constexpr ByteSet kSpecial{"&<>\"'"};

std::string_view EntityOf(char c) {
    for (const EntityRow &row : kEntities)
        if (row.character == c) return row.entity;
    return {};
}

// The entity that starts at s[at], if any.
const EntityRow *EntityAt(std::string_view s, std::size_t at) {
    std::string_view rest = s.substr(at);
    for (const EntityRow &row : kEntities)
        if (rest.starts_with(row.entity)) return &row;
    return nullptr;
}

}  // namespace

std::size_t FindSpecial(std::string_view s, std::size_t from) { return kSpecial.FindIn(s, from); }

void AppendEscaped(std::string &out, std::string_view in) {
    std::size_t copied = 0;
    for (std::size_t hit = FindSpecial(in, 0); hit != std::string_view::npos;
         hit = FindSpecial(in, copied)) {
        out.append(in.data() + copied, hit - copied);
        out.append(EntityOf(in[hit]));
        copied = hit + 1;
    }
    out.append(in.data() + copied, in.size() - copied);
}

// Taking, at each step, the entity that occurs first from the current '&'
// on is the same as taking the first position from the copy position at
// which any entity begins: every entity begins with '&', and no two begin at
// one position. So one forward scan over the '&'s does it.
void AppendUnescaped(std::string &out, std::string_view in) {
    std::size_t copied = 0;
    std::size_t at = 0;
    while (at < in.size()) {
        const void *amp = std::memchr(in.data() + at, '&', in.size() - at);
        if (!amp) break;
        at = static_cast<const char *>(amp) - in.data();
        if (const EntityRow *row = EntityAt(in, at)) {
            out.append(in.data() + copied, at - copied);
            out.push_back(row->character);
            at += row->entity.size();
            copied = at;
        } else {
            ++at;
        }
    }
    out.append(in.data() + copied, in.size() - copied);
}

}  // namespace qor::xmltext

std::string &EscapeXML(std::string &text) {
    if (qor::xmltext::FindSpecial(text, 0) == std::string::npos) return text;
    std::string escaped;
    escaped.reserve(text.size() + text.size() / 4 + 8);
    qor::xmltext::AppendEscaped(escaped, text);
    text.swap(escaped);
    return text;
}

std::string &UnescapeXML(std::string &text) {
    if (text.find('&') == std::string::npos) return text;
    std::string plain;
    plain.reserve(text.size());
    qor::xmltext::AppendUnescaped(plain, text);
    text.swap(plain);
    return text;
}
