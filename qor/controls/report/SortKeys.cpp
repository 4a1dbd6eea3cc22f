#include "qor/controls/report/SortKeys.h"

#include <cfloat>
#include <charconv>
#include <cstdint>
#include <limits>

namespace qor {
// Helpers of this file only; named, so a unity build cannot mix them up.
namespace sort_keys_impl {

// The byte at i, or NUL past the end, where a C string has its terminator.
inline char ByteAt(std::string_view s, std::size_t i) { return i < s.size() ? s[i] : '\0'; }

inline bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
inline bool IsNumberChar(char c) { return (c >= '0' && c <= '9') || c == '.'; }

// toupper of the C locale on a signed char, as the original compared them.
inline int UpperSigned(char c) {
    int v = static_cast<signed char>(c);
    return v >= 'a' && v <= 'z' ? v - ('a' - 'A') : v;
}

std::size_t NumberRunEnd(std::string_view s, std::size_t i) {
    while (IsNumberChar(ByteAt(s, i))) ++i;
    return i;
}

// The run [i, end) read as a stream reads a float: digits with at most one
// point; a failed read gives 0, an overflow the largest float.
float ReadRun(std::string_view s, std::size_t i, std::size_t end) {
    // Up to 19 digits and no point: the integer, rounded to a float once,
    // is what a correctly rounded read of the text gives.
    if (end - i <= 19) {
        std::uint64_t integer = 0;
        std::size_t k = i;
        while (k < end && s[k] != '.') integer = integer * 10 + static_cast<unsigned>(s[k++] - '0');
        if (k == end) return static_cast<float>(integer);
    }
    float value = 0;
    const char *first = s.data() + i;
    auto [ptr, ec] = std::from_chars(first, s.data() + end, value, std::chars_format::fixed);
    if (ec == std::errc::invalid_argument) return 0;
    if (ec == std::errc::result_out_of_range) {
        // Too large, or too small to be told from zero.
        for (const char *p = first; p != ptr && *p != '.'; ++p)
            if (*p != '0') return FLT_MAX;
        return 0;
    }
    return value;
}

}  // namespace sort_keys_impl

bool NaturalLess(std::string_view a, std::string_view b) {
    using namespace sort_keys_impl;
    std::size_t i = 0, j = 0;
    for (;;) {
        while (IsBlank(ByteAt(a, i))) ++i;
        while (IsBlank(ByteAt(b, j))) ++j;
        if (IsNumberChar(ByteAt(a, i)) && IsNumberChar(ByteAt(b, j))) {
            std::size_t endA = NumberRunEnd(a, i), endB = NumberRunEnd(b, j);
            if (a.substr(i, endA - i) == b.substr(j, endB - j)) {
                // Equal runs read equal from every position within them, and
                // their characters are equal: the character walk would step
                // through both and come out after them.
                i = endA, j = endB;
                continue;
            }
            float x = ReadRun(a, i, endA), y = ReadRun(b, j, endB);
            if (x < y) return true;
            if (x > y) return false;
        }
        if (i >= a.size() && j >= b.size()) return false;
        int ua = UpperSigned(ByteAt(a, i)), ub = UpperSigned(ByteAt(b, j));
        if (ua > ub) return false;
        if (ua < ub) return true;
        ++i, ++j;
    }
}

std::int32_t Atol32(std::string_view text) {
    using namespace sort_keys_impl;
    std::size_t i = 0;
    while (IsBlank(ByteAt(text, i))) ++i;
    bool negative = false;
    if (char c = ByteAt(text, i); c == '+' || c == '-') negative = c == '-', ++i;
    std::int64_t value = 0;
    constexpr std::int64_t limit = std::int64_t(std::numeric_limits<std::int32_t>::max()) + 1;
    for (char c = ByteAt(text, i); c >= '0' && c <= '9'; c = ByteAt(text, ++i))
        if (value < limit) value = value * 10 + (c - '0');
    if (negative) return value >= limit ? std::numeric_limits<std::int32_t>::min() : static_cast<std::int32_t>(-value);
    return value >= limit ? std::numeric_limits<std::int32_t>::max() : static_cast<std::int32_t>(value);
}

}  // namespace qor
