#include "qor/view3d/VrmlText.h"

#include <locale.h>

#include <charconv>
#include <cstdlib>
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

// Converts the characters formatted input collected: the whole of them must
// be a number, and a value beyond the float range is a failure.
bool Convert(const std::string &collected, float &value) {
    const char *begin = collected.data();
    const char *end = begin + collected.size();
    if (begin != end && *begin == '+') ++begin;  // from_chars takes no plus sign
    auto [ptr, ec] = std::from_chars(begin, end, value, std::chars_format::general);
    if (ec == std::errc() && begin != end) return ptr == end;
    // Not a plain in-range number: ask strtof, which decides what the stream
    // does with underflow, overflow and leftovers.
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
    const std::size_t i = text.find(terminator, position);
    if (i == std::string_view::npos) return {};
    std::string_view result = text.substr(position, i - position + 2);
    position = i + terminator.size();
    return result;
}

int ExtractFloats(std::string_view text, float *out, int n) {
    std::size_t p = 0;
    std::string collected;
    for (int slot = 0; slot < n; ++slot) {
        while (p < text.size() && IsStreamSpace(text[p])) ++p;
        if (p >= text.size()) return slot;  // end of the stream: the read fails
        // The characters formatted input takes for a float: a sign, digits
        // with one point, and an exponent once a digit has been seen.
        collected.clear();
        if (text[p] == '+' || text[p] == '-') collected += text[p++];
        bool mantissa = false, point = false, exponent = false;
        while (p < text.size()) {
            const char c = text[p];
            if (IsDigit(c)) {
                collected += c;
                mantissa = true;
            } else if (c == '.' && !point && !exponent) {
                collected += c;
                point = true;
            } else if ((c == 'e' || c == 'E') && !exponent && mantissa) {
                collected += 'e';
                exponent = true;
                if (p + 1 < text.size() && (text[p + 1] == '+' || text[p + 1] == '-')) {
                    collected += text[++p];
                }
            } else {
                break;
            }
            ++p;
        }
        float value;
        if (!Convert(collected, value)) return slot;
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
    std::size_t p = 0;
    while (p < text.size() && IsStreamSpace(text[p])) ++p;
    bool negative = false;
    if (p < text.size() && (text[p] == '+' || text[p] == '-')) negative = text[p++] == '-';
    std::int64_t value = 0;
    constexpr std::int64_t limit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    for (; p < text.size() && IsDigit(text[p]); ++p) {
        value = value * 10 + (text[p] - '0');
        if (value > limit) value = limit;  // saturate; the clamp below decides
    }
    if (negative) value = -value;
    if (value > std::numeric_limits<std::int32_t>::max()) return std::numeric_limits<std::int32_t>::max();
    if (value < std::numeric_limits<std::int32_t>::min()) return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(value);
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
