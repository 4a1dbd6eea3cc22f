// Finds the version resource of a PE image (an .exe, .dll, .sys... of
// Windows, 32- or 64-bit) held in memory. Every offset and size in the file is
// checked against the image before it is used: a truncated or hostile file
// gives no resource, never a read outside the buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace qor {

// The bytes of the RT_VERSION resource (its first name) in the first of
// `languages` that the image holds, else in its first language; nothing when
// the image has none or cannot be read.
std::optional<std::vector<std::uint8_t>> FindVersionResource(std::span<const std::uint8_t> image,
                                                             std::span<const std::uint16_t> languages);
// The same in the languages a Windows program of this user would get (see
// ResourceLanguage.h).
std::optional<std::vector<std::uint8_t>> FindVersionResource(std::span<const std::uint8_t> image);

}  // namespace qor
