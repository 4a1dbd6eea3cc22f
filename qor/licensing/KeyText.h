// The typed form of a product key: its bytes in Crockford's base32 with two
// check characters, grouped by five. The layout is told in ProductKey.h.
#pragma once

#include <string>
#include <vector>

#include "qor/licensing/ProductKey.h"

namespace qor {

// The grouped text of `bytes`.
std::string EncodeKeyText(const std::vector<unsigned char> &bytes);

// Reads a key's text into its bytes: Valid, or Empty, BadCharacter,
// WrongLength (outside minBytes..maxBytes, or a count of characters no
// whole number of bytes gives) or Mistyped (check characters or unused
// bits that do not match). `bytes` is filled only on Valid.
CProductKey::Status DecodeKeyText(const std::string &text, std::size_t minBytes,
                                  std::size_t maxBytes, std::vector<unsigned char> &bytes);

}  // namespace qor
