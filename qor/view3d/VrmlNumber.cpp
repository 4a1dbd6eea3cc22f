#include "qor/view3d/VrmlNumber.h"

#include <locale.h>

#include <bit>
#include <charconv>
#include <cstring>
#include <limits>
#include <string>

namespace qor::vrml {
namespace {

unsigned DigitOf(char c) { return static_cast<unsigned>(c) - '0'; }  // 0..9 for a digit, larger otherwise

// Powers of ten that are exact doubles: 10^22 = 2^22 * 5^22, and 5^22 < 2^53.
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kExactPower = 22;

// The digits of a number as scanned, the value being mantissa * 10^exponent
// unless there were too many digits for the mantissa to hold.
struct Decimal {
    std::uint64_t mantissa = 0;
    std::int64_t exponent = 0;
    bool dropped = false;  // more than 19 digits
};

// mantissa * 10^exponent correctly rounded to float, when that can be had
// cheaply and surely: an exact mantissa times or over an exact power of ten
// is one correctly rounded double operation, and rounding that double to
// float gives the float nearest the decimal unless the double lies exactly
// halfway between two floats (where the decimal may have been off it to
// either side). Results here lie between 1e-22 and 2^53 * 1e22, inside the
// range of normal floats. False when it cannot decide.
bool FastFloat(const Decimal &d, float &value) {
    if (d.dropped || d.mantissa > (std::uint64_t{1} << 53) || d.exponent < -kExactPower || d.exponent > kExactPower)
        return false;
    const double m = static_cast<double>(d.mantissa);
    const double r = d.exponent >= 0 ? m * kPowersOfTen[d.exponent] : m / kPowersOfTen[-d.exponent];
    // A float keeps 23 of the double's 52 fraction bits; halfway shows as a
    // one followed by 28 zeros in the 29 bits it drops.
    constexpr std::uint64_t low = (std::uint64_t{1} << 29) - 1, half = std::uint64_t{1} << 28;
    if ((std::bit_cast<std::uint64_t>(r) & low) == half) return false;
    value = static_cast<float>(r);
    return true;
}

// strtof in the "C" locale, whatever the program's locale is.
float StrtofC(const char *text, char **end) {
    static const locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    return strtof_l(text, end, c);
}

// The characters [begin, end) that formatted input took for a float,
// converted as it converts them: from_chars where it gives the same result
// (it rounds as strtof does, but takes no '+' and calls underflow and
// overflow errors), otherwise strtof itself, whose underflow is a value and
// whose overflow is a failure.
bool SlowFloat(const char *begin, const char *end, float &value) {
    const char *from = begin != end && *begin == '+' ? begin + 1 : begin;
    float v;
    const auto [ptr, ec] = std::from_chars(from, end, v, std::chars_format::general);
    if (ec == std::errc() && ptr == end) {
        value = v;
        return true;
    }
    const std::string collected(begin, end);
    char *stop = nullptr;
    v = StrtofC(collected.c_str(), &stop);
    if (stop == collected.c_str() || *stop != '\0') return false;
    if (v == std::numeric_limits<float>::infinity() || v == -std::numeric_limits<float>::infinity()) return false;
    value = v;
    return true;
}

}  // namespace

bool ReadFloat(const char *&p, const char *end, float &value) {
    while (p != end && IsBlank(*p)) ++p;
    const char *const start = p;
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) negative = *p++ == '-';
    // All digits go into the mantissa; more than 19 may have wrapped it, and
    // are left to the slow path.
    Decimal d;
    unsigned digit;
    const char *const integer = p;
    while (p != end && (digit = DigitOf(*p)) <= 9) d.mantissa = d.mantissa * 10 + digit, ++p;
    std::ptrdiff_t digits = p - integer;
    if (p != end && *p == '.') {
        const char *const fraction = ++p;
        while (p != end && (digit = DigitOf(*p)) <= 9) d.mantissa = d.mantissa * 10 + digit, ++p;
        d.exponent = -(p - fraction);
        digits += p - fraction;
    }
    if (digits == 0) return false;  // "", "+", ".", "-.": nothing a number can be made of
    if (p != end && (*p == 'e' || *p == 'E')) {
        ++p;
        bool negativeExponent = false;
        if (p != end && (*p == '+' || *p == '-')) negativeExponent = *p++ == '-';
        const char *const exponentDigits = p;
        std::int64_t exponent = 0;
        for (; p != end && (digit = DigitOf(*p)) <= 9; ++p)
            if (exponent < 100000) exponent = exponent * 10 + digit;
        // "1e" and "1e+" end where strtof cannot follow: the stream fails.
        if (p == exponentDigits) return false;
        d.exponent += negativeExponent ? -exponent : exponent;
    }
    d.dropped = digits > 19;
    float v;
    if (d.mantissa == 0 && !d.dropped) {
        v = 0.0f;  // all zeros, whatever the exponent
    } else if (!FastFloat(d, v)) {
        return SlowFloat(start, p, value);
    }
    value = negative ? -v : v;
    return true;
}

int ReadFloats(const char *&p, const char *end, float *out, int n) {
    for (int slot = 0; slot < n; ++slot)
        if (!ReadFloat(p, end, out[slot])) return slot;
    return n;
}

std::int32_t ReadIndex(const char *&p, const char *end) {
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) negative = *p++ == '-';
    // Saturates at 2^31: the clamp below decides what that means for each sign.
    constexpr std::uint64_t limit = std::uint64_t{1} << 31;
    std::uint64_t value = 0;
    for (unsigned digit; p != end && (digit = DigitOf(*p)) <= 9; ++p)
        if (value < limit) value = value * 10 + digit;
    if (value > limit) value = limit;
    if (negative) return static_cast<std::int32_t>(-static_cast<std::int64_t>(value));
    return static_cast<std::int32_t>(value == limit ? limit - 1 : value);
}

}  // namespace qor::vrml
