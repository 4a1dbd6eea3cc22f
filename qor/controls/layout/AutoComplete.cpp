#include "qor/controls/layout/AutoComplete.h"

#include <strings.h>

namespace qor {

std::optional<std::size_t> FindCompletion(const std::vector<std::string> &items,
                                          std::string_view typed, bool caseSensitive) {
    if (typed.empty()) return std::nullopt;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::string &item = items[i];
        if (item.size() <= typed.size()) continue;
        const bool prefix = caseSensitive
                                ? item.compare(0, typed.size(), typed) == 0
                                : strncasecmp(item.data(), typed.data(), typed.size()) == 0;
        if (prefix) return i;
    }
    return std::nullopt;
}

}  // namespace qor
