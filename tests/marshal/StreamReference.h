// The reference the Convert functions are checked against, in the tests and
// the fuzz target alike: a literal string stream of precision 10, with the
// same cut at the first byte of 128 or more and the same rule for empty bools.
#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <type_traits>

namespace marshal_reference {

template <class To>
To StreamConvert(std::string text) {
    const auto cut = std::find_if(text.begin(), text.end(),
                                  [](char c) { return static_cast<unsigned char>(c) >= 128; });
    text.erase(cut, text.end());
    if (std::is_same_v<To, bool> && text.empty()) text = "0";
    std::stringstream stream;
    stream.precision(10);
    stream << text;
    To value{};
    stream >> value;
    return value;
}

template <class From>
std::string StreamText(From value) {
    std::stringstream stream;
    stream.precision(10);
    stream << value;
    return stream.str();
}

}  // namespace marshal_reference
