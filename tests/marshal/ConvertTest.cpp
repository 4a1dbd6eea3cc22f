// Convert against tables of known results and, differentially, against a
// literal text stream of precision 10 over many generated strings.
#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>
#include <random>

#include "StreamReference.h"
#include "qor/marshal/Convert.h"

namespace {

using marshal_reference::StreamConvert;
using marshal_reference::StreamText;

TEST(ConvertFromText, Integers) {
    struct Case {
        const char *text;
        int asInt;
        unsigned asUnsigned;  // a long reads as the int does: 32 bits wide on every platform
    };
    const Case cases[] = {
        {"12abc", 12, 12},       {"abc", 0, 0},           {"", 0, 0},
        {"   -7", -7, 4294967289u}, {"+5", 5, 5},         {"- 5", 0, 0},
        {"12.9", 12, 12},        {"3000000000", INT_MAX, 3000000000u},
        {"-3000000000", INT_MIN, 1294967296u},            {"99999999999999999999", INT_MAX, UINT_MAX},
        {"12\x80" "34", 12, 12}, {"\xC3\xA9" "12", 0, 0}, {"0x10", 0, 0},
        {"\t\n 0042 ", 42, 42},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(Convert<int>(std::string(c.text)), c.asInt);
        EXPECT_EQ(Convert<unsigned int>(std::string(c.text)), c.asUnsigned);
        EXPECT_EQ(Convert<long>(std::string(c.text)), c.asInt);
        EXPECT_EQ(qor::convert::TextToLong(c.text), c.asInt);
    }
    EXPECT_EQ(Convert<long long>(std::string("3000000000")), 3000000000LL);  // 64 bits everywhere
    EXPECT_EQ(Convert<unsigned long long>(std::string("-1")), ~0ULL);
}

TEST(ConvertFromText, BoolsAndDoubles) {
    struct BoolCase {
        const char *text;
        bool value;
    };
    const BoolCase bools[] = {{"", false}, {"0", false}, {"1", true}, {"2", true}, {"-1", true},
                              {"abc", false}, {" ", false}, {"1abc", true}, {"\x90", false}};
    for (const BoolCase &c : bools) EXPECT_EQ(Convert<bool>(std::string(c.text)), c.value) << c.text;

    struct DoubleCase {
        const char *text;
        double value;
    };
    const DoubleCase doubles[] = {
        {"1.5e3", 1500}, {".5", 0.5}, {"1.2.3", 1.2}, {"1e", 0}, {"1e+", 0}, {"-", 0}, {".", 0},
        {"1e5x", 1e5},   {"0.1", 0.1}, {"-0", 0},     {"inf", 0}, {"nan", 0}, {"1e999", DBL_MAX},
        {"-1e999", -DBL_MAX}, {"00012.50", 12.5}, {"  3E2", 300}, {"1.5E+2z", 150},
    };
    for (const DoubleCase &c : doubles) EXPECT_EQ(Convert<double>(std::string(c.text)), c.value) << c.text;
    EXPECT_EQ(Convert<float>(std::string("0.25")), 0.25f);
}

TEST(ConvertToText, TenSignificantDigits) {
    // Doubles and ints at large are checked against the stream below.
    EXPECT_EQ(Convert<std::string>(1.0 / 3), "0.3333333333");
    EXPECT_EQ(Convert<std::string>(12345678901.0), "1.23456789e+10");
    EXPECT_EQ(Convert<std::string>(true), "1");
    EXPECT_EQ(Convert<std::string>(false), "0");
    EXPECT_EQ(Convert<std::string>(4294967295u), "4294967295");
    EXPECT_EQ(Convert<std::string>(std::string(" a b \x90")), " a b \x90");  // copied whole
}

TEST(ConvertFromText, ReadsNoFurtherThanTheValue) {
    // A view into a longer buffer: nothing past its end may count.
    const std::string buffer = "1234.5e+10";
    EXPECT_EQ(Convert<int>(std::string_view(buffer.data(), 2)), 12);
    EXPECT_EQ(Convert<double>(std::string_view(buffer.data(), 6)), 1234.5);
    EXPECT_EQ(Convert<double>(std::string_view(buffer.data(), 7)), 0.0);  // "1234.5e"
    EXPECT_EQ(Convert<bool>(std::string_view(buffer.data(), 0)), false);
}

// Random strings over the characters number reading cares about.
std::vector<std::string> GeneratedTexts() {
    static const char alphabet[] = "0123456789+-.eE \t\nx\x80" "9";
    std::mt19937 random(20261122);
    std::vector<std::string> texts;
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        const int length = static_cast<int>(random() % 12);
        for (int j = 0; j < length; ++j) text += alphabet[random() % (sizeof alphabet - 1)];
        texts.push_back(text);
    }
    for (const char *extra : {"18446744073709551615", "18446744073709551616", "-9223372036854775808",
                              "-9223372036854775809", "2147483648", "-2147483648", "65536", "-65536",
                              "4294967296", "1e308", "1e309", "2.2250738585072014e-308", "4.9e-324",
                              "1e-400", "0000000000000000000001"}) {
        texts.push_back(extra);
    }
    return texts;
}

TEST(ConvertDifferential, MatchesAStringStream) {
    for (const std::string &text : GeneratedTexts()) {
        SCOPED_TRACE(testing::PrintToString(text));
        ASSERT_EQ(Convert<int>(text), StreamConvert<int>(text));
        ASSERT_EQ(Convert<unsigned int>(text), StreamConvert<unsigned int>(text));
        ASSERT_EQ(Convert<short>(text), StreamConvert<short>(text));
        ASSERT_EQ(Convert<unsigned short>(text), StreamConvert<unsigned short>(text));
        ASSERT_EQ(Convert<bool>(text), StreamConvert<bool>(text));
        const double fast = Convert<double>(text);
        const double slow = StreamConvert<double>(text);
        ASSERT_TRUE(fast == slow || (std::isnan(fast) && std::isnan(slow))) << fast << " vs " << slow;
    }
}

TEST(ConvertDifferential, TextMatchesAStringStream) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isnan(value)) continue;
        ASSERT_EQ(Convert<std::string>(value), StreamText(value));
        const int integer = static_cast<int>(bits);
        ASSERT_EQ(Convert<std::string>(integer), StreamText(integer));
        const double scaled = static_cast<double>(static_cast<std::int32_t>(bits)) / 1000.0;
        ASSERT_EQ(Convert<std::string>(scaled), StreamText(scaled));
    }
}

}  // namespace
