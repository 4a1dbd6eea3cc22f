#include "qor/view3d/VrmlText.h"

#include <locale.h>

#include <charconv>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace qor::vrml {
namespace {

bool IsStreamSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// strtof in the "C" locale, whatever the program's locale is.
float StrtofC(const char *text, char **end) {
    static const locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    return strtof_l(text, end, c);
}

// Exact powers of ten as floats: 10^10 = 2^10 * 5^10 still fits the 24-bit mantissa.
constexpr float kPowersOfTen[] = {1e0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f, 1e6f, 1e7f, 1e8f, 1e9f, 1e10f};

// The common short decimals, exactly: with at most 7 significant digits and
// a small power of ten, the mantissa and the power are exact floats and one
// multiplication or division rounds correctly, as strtof does. False when
// the text is not of that kind.
bool ShortDecimal(const char *p, const char *end, float &value) {
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) negative = *p++ == '-';
    std::uint32_t mantissa = 0;
    int digits = 0, scale = 0;
    bool any = false;
    for (; p != end && IsDigit(*p); ++p, any = true) {
        if (mantissa == 0 && *p == '0') continue;
        if (++digits > 7) return false;
        mantissa = mantissa * 10 + static_cast<std::uint32_t>(*p - '0');
    }
    if (p != end && *p == '.') {
        for (++p; p != end && IsDigit(*p); ++p, any = true) {
            if (mantissa == 0 && *p == '0') {
                --scale;
                continue;
            }
            if (++digits > 7) return false;
            mantissa = mantissa * 10 + static_cast<std::uint32_t>(*p - '0');
            --scale;
        }
    }
    if (!any || p != end) return false;  // exponents and the rest go the long way
    if (scale < -10) return false;
    const float m = static_cast<float>(mantissa);
    value = scale == 0 ? m : m / kPowersOfTen[-scale];
    if (negative) value = -value;
    return true;
}

// Converts the characters formatted input takes for a float, [begin, end):
// the whole of them must be a number, and a value beyond the float range is
// a failure. (The stream collapses leading zeros and writes 'E' as 'e' in
// what it collects; neither changes the number.)
bool Convert(const char *begin, const char *end, float &value) {
    if (ShortDecimal(begin, end, value)) return true;
    const char *from = begin;
    if (from != end && *from == '+') ++from;  // from_chars takes no plus sign
    auto [ptr, ec] = std::from_chars(from, end, value, std::chars_format::general);
    if (ec == std::errc() && from != end) return ptr == end;
    // Not a plain in-range number: ask strtof, which decides what the stream
    // does with underflow, overflow and leftovers.
    const std::string collected(begin, end);
    char *sanity = nullptr;
    const float v = StrtofC(collected.c_str(), &sanity);
    if (sanity == collected.c_str() || *sanity != '\0') return false;
    if (v == std::numeric_limits<float>::infinity() || v == -std::numeric_limits<float>::infinity())
        return false;
    value = v;
    return true;
}

}  // namespace

std::string_view ExtractString(std::string_view text, std::size_t &position,
                               std::string_view terminator) {
    std::size_t i = std::string_view::npos;
    if (terminator.size() == 1) {
        // The list separators: a plain byte search.
        const void *hit = position < text.size()
                              ? std::memchr(text.data() + position, terminator[0], text.size() - position)
                              : nullptr;
        if (hit) i = static_cast<std::size_t>(static_cast<const char *>(hit) - text.data());
    } else {
        i = text.find(terminator, position);
    }
    if (i == std::string_view::npos) return {};
    std::string_view result = text.substr(position, i - position + 2);
    position = i + terminator.size();
    return result;
}

int ExtractFloats(std::string_view text, float *out, int n) {
    std::size_t p = 0;
    for (int slot = 0; slot < n; ++slot) {
        while (p < text.size() && IsStreamSpace(text[p])) ++p;
        if (p >= text.size()) return slot;  // end of the stream: the read fails
        // The characters formatted input takes for a float: a sign, digits
        // with one point, and an exponent once a digit has been seen.
        const std::size_t start = p;
        if (text[p] == '+' || text[p] == '-') ++p;
        bool mantissa = false, point = false, exponent = false;
        while (p < text.size()) {
            const char c = text[p];
            if (IsDigit(c)) {
                mantissa = true;
            } else if (c == '.' && !point && !exponent) {
                point = true;
            } else if ((c == 'e' || c == 'E') && !exponent && mantissa) {
                exponent = true;
                if (p + 1 < text.size() && (text[p + 1] == '+' || text[p + 1] == '-')) ++p;
            } else {
                break;
            }
            ++p;
        }
        float value;
        if (!Convert(text.data() + start, text.data() + p, value)) return slot;
        out[slot] = value;
    }
    return n;
}

void ExtractColor(std::string_view block, std::string_view key, float *out, int n) {
    const std::size_t k = block.find(key);
    if (k == std::string_view::npos) return;
    std::string_view rest = block.substr(k + key.size());
    if (rest.empty()) return;
    if (const std::size_t close = rest.find(']'); close != std::string_view::npos)
        rest = rest.substr(0, close);
    if (const std::size_t open = rest.find('['); open != std::string_view::npos)
        rest = rest.substr(open + 1);
    ExtractFloats(rest, out, n);
}

std::int32_t ToInt(std::string_view text) {
    const char *p = text.data(), *end = p + text.size();
    while (p != end && IsStreamSpace(*p)) ++p;
    bool negative = false;
    if (p != end && (*p == '+' || *p == '-')) negative = *p++ == '-';
    // Saturates at 2^31: the clamp below decides what that means for each sign.
    constexpr std::int64_t limit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    std::int64_t value = 0;
    for (; p != end && IsDigit(*p); ++p) value = std::min(value * 10 + (*p - '0'), limit);
    if (negative) return static_cast<std::int32_t>(-value);
    return static_cast<std::int32_t>(std::min<std::int64_t>(value, std::numeric_limits<std::int32_t>::max()));
}

std::size_t Finder::From(std::size_t from) {
    if (!known_ || from < askedFrom_ || (found_ != std::string_view::npos && from > found_)) {
        found_ = text_.find(token_, from);
        known_ = true;
    }
    askedFrom_ = from;
    return found_;
}

}  // namespace qor::vrml
