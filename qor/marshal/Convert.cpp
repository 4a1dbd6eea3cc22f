// Text to value and back with the results a "C"-locale text stream gives,
// without building a stream for every value.
#include "qor/marshal/Convert.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <locale.h>

namespace qor::convert {
namespace {

bool IsStreamSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// What integer extraction sees: sign, magnitude, whether any digit was
// there, and whether the magnitude ran past 64 bits.
struct IntegerText {
    bool negative = false;
    bool anyDigit = false;
    bool overflow = false;
    unsigned long long magnitude = 0;
};

IntegerText ScanInteger(std::string_view text) {
    IntegerText result;
    std::size_t i = 0;
    while (i < text.size() && IsStreamSpace(text[i])) ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        result.negative = text[i] == '-';
        ++i;
    }
    constexpr unsigned long long limit = std::numeric_limits<unsigned long long>::max();
    for (; i < text.size() && IsDigit(text[i]); ++i) {
        const unsigned digit = static_cast<unsigned>(text[i] - '0');
        result.anyDigit = true;
        if (result.overflow) continue;
        if (result.magnitude > (limit - digit) / 10) {
            result.overflow = true;
        } else {
            result.magnitude = result.magnitude * 10 + digit;
        }
    }
    return result;
}

// strtod in the "C" locale whatever the process's locale is.
double StrtodC(const char *text, char **end) {
    static const locale_t c_locale = newlocale(LC_ALL_MASK, "C", locale_t(0));
    return strtod_l(text, end, c_locale);
}

}  // namespace

std::string_view ValueText(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (static_cast<unsigned char>(text[i]) >= 128) return text.substr(0, i);
    }
    return text;
}

long long TextToSigned(std::string_view text, long long min, long long max) {
    const IntegerText scan = ScanInteger(ValueText(text));
    if (!scan.anyDigit) return 0;
    if (scan.negative) {
        const unsigned long long limit = 0ULL - static_cast<unsigned long long>(min);
        if (scan.overflow || scan.magnitude > limit) return min;
        return static_cast<long long>(0ULL - scan.magnitude);
    }
    if (scan.overflow || scan.magnitude > static_cast<unsigned long long>(max)) return max;
    return static_cast<long long>(scan.magnitude);
}

unsigned long long TextToUnsigned(std::string_view text, unsigned long long max) {
    const IntegerText scan = ScanInteger(ValueText(text));
    if (!scan.anyDigit) return 0;
    if (scan.overflow || scan.magnitude > max) return max;
    return scan.negative ? (0ULL - scan.magnitude) & max : scan.magnitude;
}

bool TextToBool(std::string_view text) {
    // A bool is extracted as a long: 0 is false, 1 true, and any other number
    // true as well (with a failure nobody looks at).
    return TextToSigned(text, std::numeric_limits<long long>::min(),
                        std::numeric_limits<long long>::max()) != 0;
}

double TextToDouble(std::string_view whole) {
    const std::string_view text = ValueText(whole);
    std::size_t i = 0;
    while (i < text.size() && IsStreamSpace(text[i])) ++i;

    // Gather the characters that may belong to a number, as the stream's
    // extraction does, then convert them; what gathers but does not convert
    // whole ("1e", "-", ".") reads as 0.
    std::string gathered;  // short numbers stay in the string's own buffer
    auto keep = [&](char c) { gathered.push_back(c); };
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) keep(text[i++]);
    bool mantissa = false;
    while (i < text.size() && text[i] == '0') {
        if (!mantissa) keep('0');
        mantissa = true;
        ++i;
    }
    bool decimalPoint = false;
    bool exponent = false;
    while (i < text.size()) {
        const char c = text[i];
        if (IsDigit(c)) {
            keep(c);
            mantissa = true;
        } else if (c == '.' && !decimalPoint && !exponent) {
            keep('.');
            decimalPoint = true;
        } else if ((c == 'e' || c == 'E') && !exponent && mantissa) {
            keep('e');
            exponent = true;
            ++i;
            if (i == text.size()) break;
            if (text[i] != '+' && text[i] != '-') continue;
            keep(text[i]);
        } else {
            break;
        }
        ++i;
    }
    if (gathered.empty()) return 0.0;

    const char *begin = gathered.c_str();
    const char *first = begin[0] == '+' ? begin + 1 : begin;
    const char *last = begin + gathered.size();
    double value = 0.0;
    const auto [ptr, ec] = std::from_chars(first, last, value);
    if (ec == std::errc() && ptr == last) return value;

    char *end = nullptr;
    value = StrtodC(begin, &end);
    if (end == begin || *end != '\0') return 0.0;
    if (value == std::numeric_limits<double>::infinity()) return std::numeric_limits<double>::max();
    if (value == -std::numeric_limits<double>::infinity()) return -std::numeric_limits<double>::max();
    return value;
}

long TextToLong(std::string_view text) {
    return static_cast<long>(TextToSigned(text, INT32_MIN, INT32_MAX));
}

std::string SignedToText(long long value) {
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string UnsignedToText(unsigned long long value) {
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string DoubleToText(double value) {
    char buffer[40];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 10);
    return std::string(buffer, result.ptr);
}

}  // namespace qor::convert
