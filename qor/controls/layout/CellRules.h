// What text the suite's grid cells accept and the form they store it in:
// numbers with a range, a step and a number of decimals; a choice among
// fixed items; a check mark. The grid's editors refuse what these refuse.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// A number from `min` to `max` (both included) shown with `decimals` places.
// Text is accepted when it is a plain decimal, with '.' as the mark whatever
// the locale (spaces around it allowed, no exponent, no thousands marks),
// with no more significant decimals than the cell shows, and within the
// range; anything else is refused rather than changed, so what is stored
// is what was typed. Stored text has exactly `decimals` places.
//
// Out-of-order limits are swapped, decimals are held to 0..9, and a step
// that is not positive becomes one unit of the last place.
class NumberCellRule {
public:
    NumberCellRule(double min, double max, double step = 1, int decimals = 0);

    std::optional<double> Parse(std::string_view text) const;
    std::string Format(double value) const;
    // The stored form of `text`, or nothing when it is refused.
    std::optional<std::string> Accept(std::string_view text) const;
    // `value` moved by `steps` steps, held to the range and rounded to the
    // shown places.
    double Step(double value, int steps) const;

    double Min() const { return min; }
    double Max() const { return max; }
    double StepSize() const { return step; }
    int Decimals() const { return decimals; }

private:
    double Round(double value) const;

    double min;
    double max;
    double step;
    int decimals;
};

// One of a fixed list of items. Text equal to an item (ignoring ASCII case
// unless told otherwise) is stored as that item's own spelling; anything
// else is refused.
class ChoiceCellRule {
public:
    explicit ChoiceCellRule(std::vector<std::string> items, bool caseSensitive = false)
        : items(std::move(items)), caseSensitive(caseSensitive) {}

    std::optional<std::string> Accept(std::string_view text) const;
    const std::vector<std::string> &Items() const { return items; }

private:
    std::vector<std::string> items;
    bool caseSensitive;
};

// A check mark. "1", "true", "yes", "on" check it and "0", "false", "no",
// "off" and empty text clear it, in any case and with spaces around; other
// text is refused.
struct CheckCellRule {
    static std::optional<bool> Parse(std::string_view text);
};

}  // namespace qor
