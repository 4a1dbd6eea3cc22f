// Completing what a person types in a combo box from its list.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// The first item that starts with `typed` and is longer than it, so that
// completing adds something; nothing for empty text. Without case
// sensitivity ASCII letters match either case. The first in list order
// wins, which for a recent-entries list is the most recent.
std::optional<std::size_t> FindCompletion(const std::vector<std::string> &items,
                                          std::string_view typed, bool caseSensitive);

}  // namespace qor
