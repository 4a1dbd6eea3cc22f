// Convert: the one road between a typed value and its text.
//
// Text to a value behaves as extraction from a text stream in the "C" locale
// would: leading white space is skipped, the longest prefix that reads as the
// target type is taken, and text that does not begin with a number gives 0.
// A byte of 128 or above ends the text first. Nothing is ever reported: an
// out-of-range number saturates, text to bool is true for any non-zero number.
// A value to text is what a stream of precision 10 writes: integers in plain
// decimal, doubles in the shortest of fixed or exponent form with ten
// significant digits, bools as "1" and "0", enumerations as their integer.
//
// `long` and `unsigned long` keep the 32-bit width the records were designed
// with, so a value read here is the same on every platform.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

namespace qor::convert {

// The text a value is read from: cut at the first byte with its top bit set.
std::string_view ValueText(std::string_view text);

// Reads a signed integer and saturates it to [min, max].
long long TextToSigned(std::string_view text, long long min, long long max);
// Reads an unsigned integer: a value above max saturates to max, a negative
// one wraps modulo max + 1, as stream extraction does.
unsigned long long TextToUnsigned(std::string_view text, unsigned long long max);
double TextToDouble(std::string_view text);
bool TextToBool(std::string_view text);

std::string SignedToText(long long value);
std::string UnsignedToText(unsigned long long value);
std::string DoubleToText(double value);  // ten significant digits

// The "plain conversion of text to long" of enumeration attributes: leading
// white space, a sign, decimal digits; 0 for anything else, saturated to 32
// bits.
long TextToLong(std::string_view text);

template <class T>
inline constexpr bool IsText = std::is_convertible_v<const T &, std::string_view>;

}  // namespace qor::convert

// To Convert<To>(from): between text and int, unsigned, long, unsigned long,
// short, unsigned short, double, float, bool and any enumeration.
template <typename To, typename From>
To Convert(const From &from) {
    using namespace qor::convert;
    if constexpr (std::is_same_v<To, std::string>) {
        if constexpr (IsText<From>) {
            return std::string(std::string_view(from));  // copied whole, blanks and all
        } else if constexpr (std::is_same_v<From, bool>) {
            return from ? "1" : "0";
        } else if constexpr (std::is_enum_v<From>) {
            return SignedToText(static_cast<long long>(from));
        } else if constexpr (std::is_floating_point_v<From>) {
            return DoubleToText(static_cast<double>(from));
        } else if constexpr (std::is_signed_v<From>) {
            return SignedToText(from);
        } else {
            static_assert(std::is_unsigned_v<From>, "Convert: no text form for this type");
            return UnsignedToText(from);
        }
    } else {
        static_assert(IsText<From>, "Convert: converts between text and a value");
        const std::string_view text(from);
        if constexpr (std::is_same_v<To, bool>) {
            return TextToBool(text);
        } else if constexpr (std::is_enum_v<To>) {
            return static_cast<To>(TextToSigned(text, INT32_MIN, INT32_MAX));
        } else if constexpr (std::is_floating_point_v<To>) {
            return static_cast<To>(TextToDouble(text));
        } else if constexpr (std::is_same_v<To, long>) {
            return static_cast<To>(TextToSigned(text, INT32_MIN, INT32_MAX));
        } else if constexpr (std::is_same_v<To, unsigned long>) {
            return static_cast<To>(TextToUnsigned(text, UINT32_MAX));
        } else if constexpr (std::is_signed_v<To>) {
            static_assert(std::is_integral_v<To>, "Convert: no text form for this type");
            // short and int: the stream reads a long and clamps it to the target.
            return static_cast<To>(TextToSigned(text, std::numeric_limits<To>::min(),
                                                std::numeric_limits<To>::max()));
        } else {
            static_assert(std::is_integral_v<To>, "Convert: no text form for this type");
            return static_cast<To>(TextToUnsigned(text, std::numeric_limits<To>::max()));
        }
    }
}
