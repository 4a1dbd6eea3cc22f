// The text of a cell's tool tip, wrapped for a tip of limited width.
#pragma once

#include <string>

namespace qor {

// Breaks at line ends that fall within the next 80 characters; otherwise at
// the first blank at or after 80 characters, which becomes a line end. A
// text with no such blank is left whole.
std::string WrapTipText(const std::string &text);

}  // namespace qor
