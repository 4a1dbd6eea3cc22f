// The two comparisons of the grid's sorting: the natural text order of the
// quick sort, and the integer value of numeric columns.
#pragma once

#include <cstdint>
#include <string_view>

namespace qor {

// True when a sorts before b. Blanks are skipped; where both texts stand at
// a digit or ".", the longest run of such characters is read as a float
// from each, and a smaller number sorts first; equal numbers and all other
// characters are compared one by one, upper-cased, as signed chars (the
// 32-bit original's char), a text's end standing as NUL.
bool NaturalLess(std::string_view a, std::string_view b);

// atol with a 32-bit long: leading white space, an optional sign, digits;
// out-of-range values saturate; no digits give 0.
std::int32_t Atol32(std::string_view text);

}  // namespace qor
