// The text steps of the VRML subset reader: cutting at fixed tokens and
// reading numbers the way formatted stream input reads them (VrmlNumber.h),
// without making a stream for each one. VRMLModel::Parse strings them
// together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qor::vrml {

// Finds terminator in text from position. Absent: returns an empty view and
// leaves position. Found at i: returns the text from position with the length
// i - position + 2 (two characters past the text ahead of the terminator,
// clipped to the text) and moves position to i + terminator's length.
std::string_view ExtractString(std::string_view text, std::size_t &position,
                               std::string_view terminator);

// Reads up to n floats in turn as `stream >> value` reads them from a stream
// made of text, each into its slot only when the read succeeds; the first
// failure ends the reading. Returns the count read.
int ExtractFloats(std::string_view text, float *out, int n);

// Finds key in block; the rest behind it, cut at "]" and then taken behind
// "[" when those occur, gives n floats. A missing key or an empty rest leaves
// out as it was.
void ExtractColor(std::string_view block, std::string_view key, float *out, int n);

// atoi as the 32-bit original has it: blanks, a sign, digits; 0 when there
// are none; clamped to the range of a 32-bit int.
std::int32_t ToInt(std::string_view text);

}  // namespace qor::vrml
