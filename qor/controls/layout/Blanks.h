// Cutting blanks from the ends of a piece of text, as the readers of typed
// and stored values do.
#pragma once

#include <string_view>

namespace qor {

// `text` without the characters of `blanks` at either end.
inline std::string_view TrimBlanks(std::string_view text, std::string_view blanks = " \t") {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace qor
