// The bytes of a product key's terms, version 1, as told in ProductKey.h:
// everything the signature covers.
#pragma once

#include <string>
#include <vector>

#include "qor/licensing/ProductKey.h"

namespace qor {

constexpr unsigned char kProductKeyVersion = 1;
// The sizes of a whole key, signature included.
extern const std::size_t kMinProductKeyBytes;
extern const std::size_t kMaxProductKeyBytes;

// Appends the terms' bytes to `out`. False, with the reason in `error`, for
// terms outside the limits; adapters come out sorted and once each.
bool EncodeKeyTerms(const CProductKey::Terms &terms, std::vector<unsigned char> &out,
                    std::string &error);

// Reads terms from exactly `size` bytes: Valid, UnknownVersion for another
// first byte, or Malformed for bytes no EncodeKeyTerms could have written
// (`terms` is then left unspecified).
CProductKey::Status DecodeKeyTerms(const unsigned char *bytes, std::size_t size,
                                   CProductKey::Terms &terms);

}  // namespace qor
