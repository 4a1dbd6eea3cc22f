#include "qor/view3d/VrmlText.h"

#include <cstring>

#include "qor/view3d/VrmlNumber.h"

namespace qor::vrml {

std::string_view ExtractString(std::string_view text, std::size_t &position,
                               std::string_view terminator) {
    std::size_t i = std::string_view::npos;
    if (terminator.size() == 1) {
        // The list separators: a plain byte search.
        const void *hit = position < text.size()
                              ? std::memchr(text.data() + position, terminator[0], text.size() - position)
                              : nullptr;
        if (hit) i = static_cast<std::size_t>(static_cast<const char *>(hit) - text.data());
    } else {
        i = text.find(terminator, position);
    }
    if (i == std::string_view::npos) return {};
    std::string_view result = text.substr(position, i - position + 2);
    position = i + terminator.size();
    return result;
}

int ExtractFloats(std::string_view text, float *out, int n) {
    const char *p = text.data();
    return ReadFloats(p, p + text.size(), out, n);
}

void ExtractColor(std::string_view block, std::string_view key, float *out, int n) {
    const std::size_t k = block.find(key);
    if (k == std::string_view::npos) return;
    std::string_view rest = block.substr(k + key.size());
    if (rest.empty()) return;
    if (const std::size_t close = rest.find(']'); close != std::string_view::npos)
        rest = rest.substr(0, close);
    if (const std::size_t open = rest.find('['); open != std::string_view::npos)
        rest = rest.substr(open + 1);
    ExtractFloats(rest, out, n);
}

std::int32_t ToInt(std::string_view text) {
    const char *p = text.data(), *const end = p + text.size();
    while (p != end && IsBlank(*p)) ++p;
    return ReadIndex(p, end);
}

}  // namespace qor::vrml
