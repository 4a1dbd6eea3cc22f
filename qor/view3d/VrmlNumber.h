// Reading numbers out of VRML text exactly as the reader always has: floats
// as `stream >> value` reads them from a string stream in the "C" locale, and
// indices as the 32-bit original's atoi. In place, in one pass over the
// characters, and without a stream, a copy or an allocation for all but the
// rarest forms.
#pragma once

#include <cstdint>

namespace qor::vrml {

// Reads one float from [p, end) as formatted stream input does: skips the
// stream's blanks, takes what formatted input takes for a float (a sign,
// digits with one point, and an exponent once a digit has been seen) and
// converts it; a number beyond the float range, or characters that are not a
// whole number ("-", ".", "1e+"), fail. On success stores the value, leaves p
// on the first character not taken and returns true. On failure returns
// false and leaves value alone; p is then somewhere within the characters
// taken, which are never a ',' or a ']'.
bool ReadFloat(const char *&p, const char *end, float &value);

// Reads up to n floats in turn, each into its slot only when its read
// succeeds; the first failure ends the reading, as it sets a stream's fail
// bit. Returns the count read; p is left where the reading stopped.
int ReadFloats(const char *&p, const char *end, float *out, int n);

// The blanks that formatted input and atoi pass over in the "C" locale.
inline bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// atoi as the 32-bit original has it, from p on, which is past atoi's
// blanks: a sign, digits; 0 when there are none; clamped to the range of a
// 32-bit int. p is left behind what was read.
std::int32_t ReadIndex(const char *&p, const char *end);

}  // namespace qor::vrml
