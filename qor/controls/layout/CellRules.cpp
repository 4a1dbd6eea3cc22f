#include "qor/controls/layout/CellRules.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "qor/controls/layout/Blanks.h"

namespace qor {
namespace {

bool SameText(std::string_view a, std::string_view b, bool caseSensitive) {
    if (a.size() != b.size()) return false;
    // An empty view may have no storage at all; strncasecmp wants some.
    return caseSensitive || a.empty() ? a == b : strncasecmp(a.data(), b.data(), a.size()) == 0;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Checks the plain decimal form and counts its significant decimals.
bool PlainDecimal(std::string_view text, int &decimals) {
    std::size_t i = 0, digits = 0;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    while (i < text.size() && IsDigit(text[i])) ++i, ++digits;
    std::size_t lastSignificant = i;
    const std::size_t point = i;
    if (i < text.size() && text[i] == '.') {
        ++i;
        for (; i < text.size() && IsDigit(text[i]); ++i, ++digits)
            if (text[i] != '0') lastSignificant = i + 1;
    }
    decimals = lastSignificant > point ? static_cast<int>(lastSignificant - point - 1) : 0;
    return i == text.size() && digits > 0;
}

}  // namespace

NumberCellRule::NumberCellRule(double min, double max, double step, int decimals)
    : min(std::min(min, max)), max(std::max(min, max)), decimals(std::clamp(decimals, 0, 9)) {
    this->step = step > 0 && std::isfinite(step) ? step : std::pow(10.0, -this->decimals);
}

double NumberCellRule::Round(double value) const {
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::round(value * scale) / scale;
    return rounded == 0 ? 0 : rounded;  // no "-0.00"
}

std::optional<double> NumberCellRule::Parse(std::string_view text) const {
    text = TrimBlanks(text);
    int shown = 0;
    if (!PlainDecimal(text, shown) || shown > decimals) return std::nullopt;
    if (text.front() == '+') text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    // Limits given as binary fractions may sit a hair off the typed text.
    const double slack = 1e-9 * std::max(1.0, std::fabs(value));
    if (value < min - slack || value > max + slack) return std::nullopt;
    return std::clamp(value, min, max);
}

std::string NumberCellRule::Format(double value) const {
    char text[64];
    const auto [end, error] =
        std::to_chars(text, text + sizeof text, Round(value), std::chars_format::fixed, decimals);
    return error == std::errc() ? std::string(text, end) : std::string();
}

std::optional<std::string> NumberCellRule::Accept(std::string_view text) const {
    const auto value = Parse(text);
    if (!value) return std::nullopt;
    return Format(*value);
}

double NumberCellRule::Step(double value, int steps) const {
    if (!std::isfinite(value)) value = min;
    return std::clamp(Round(value + steps * step), min, max);
}

std::optional<std::string> ChoiceCellRule::Accept(std::string_view text) const {
    for (const std::string &item : items)
        if (SameText(item, text, caseSensitive)) return item;
    return std::nullopt;
}

std::optional<bool> CheckCellRule::Parse(std::string_view text) {
    static constexpr struct {
        std::string_view word;
        bool checked;
    } kWords[] = {{"", false},     {"0", false},    {"1", true},  {"false", false}, {"true", true},
                  {"no", false},   {"yes", true},   {"off", false}, {"on", true}};
    text = TrimBlanks(text);
    for (const auto &entry : kWords)
        if (SameText(entry.word, text, false)) return entry.checked;
    return std::nullopt;
}

}  // namespace qor
