// Writes RGBA pixels as a PNG file, with zlib, which the library links anyway.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qor {

// rgba holds width * height pixels of four bytes, top row first. The alpha
// is dropped: a picture of the view is opaque. The bytes of the file.
std::string EncodePng(const std::vector<std::uint8_t> &rgba, int width, int height);

// EncodePng into a file; false when it cannot be written.
bool WritePng(const std::string &path, const std::vector<std::uint8_t> &rgba, int width, int height);

}  // namespace qor
