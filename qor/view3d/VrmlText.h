// The text steps of the VRML subset reader: cutting at fixed tokens and
// reading numbers the way formatted stream input reads them, without making
// a stream for each one. VRMLModel::Parse strings them together.
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

// text.find(token, from) for a run of calls whose from never decreases. The
// answer is kept and reused while from has not passed it, so a loop that asks
// for the next "]" once per list item stays linear.
class Finder {
public:
    Finder(std::string_view text, std::string_view token) : text_(text), token_(token) {}
    std::size_t From(std::size_t from);

private:
    std::string_view text_;
    std::string_view token_;
    std::size_t askedFrom_ = 0;
    std::size_t found_ = std::string_view::npos;
    bool known_ = false;
};

}  // namespace qor::vrml
