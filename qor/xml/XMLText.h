// Character classes and entity work shared by the tokeniser and the
// serialiser. Internal to the XML layer.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace qor::xmltext {

// A set of bytes as a lookup table, for the tokeniser's find_first_of scans.
class ByteSet {
public:
    constexpr explicit ByteSet(std::string_view members) : table_{} {
        for (char c : members) table_[static_cast<unsigned char>(c)] = true;
    }
    constexpr bool operator()(char c) const { return table_[static_cast<unsigned char>(c)]; }

    // First position at or after `from` whose byte is in the set, or npos.
    std::size_t FindIn(std::string_view s, std::size_t from) const {
        for (std::size_t i = from; i < s.size(); ++i)
            if (table_[static_cast<unsigned char>(s[i])]) return i;
        return std::string_view::npos;
    }
    // First position at or after `from` whose byte is not in the set, or npos.
    std::size_t FindNotIn(std::string_view s, std::size_t from) const {
        for (std::size_t i = from; i < s.size(); ++i)
            if (!table_[static_cast<unsigned char>(s[i])]) return i;
        return std::string_view::npos;
    }

private:
    std::array<bool, 256> table_;
};

// White space as the dialect knows it.
inline constexpr std::string_view kSpaceChars = "\r\n\t ";
inline constexpr ByteSet kSpace{kSpaceChars};

// Appends `in` with & < > " ' replaced by their entities.
void AppendEscaped(std::string &out, std::string_view in);

// Appends `in` unescaped exactly as UnescapeXML would leave it.
void AppendUnescaped(std::string &out, std::string_view in);

// Position of the first byte of & < > " ' at or after from, or npos.
std::size_t FindSpecial(std::string_view s, std::size_t from);

}  // namespace qor::xmltext
