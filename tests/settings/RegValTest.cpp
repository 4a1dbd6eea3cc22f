// CRegVal: the byte layouts of each type and which reads each type allows.
#include <gtest/gtest.h>

#include <string>

#include "qor/settings/RegVal.h"

namespace {

std::string Bytes(CRegVal &value) {
    return std::string(reinterpret_cast<const char *>(value.GetRawData()), value.GetSize());
}

TEST(RegValTest, EachSetterGivesTheRegistrysLayout) {
    CRegVal number(0x11223344ul);
    EXPECT_EQ(number.GetType(), 4u);
    EXPECT_EQ(Bytes(number), std::string("\x44\x33\x22\x11", 4));

    // Only 32 bits are kept, as on the 32-bit original.
    CRegVal wide(0x1FFFFFFFFul);
    unsigned long back = 0;
    ASSERT_EQ(wide.GetValue(back), 1);
    EXPECT_EQ(back, 0xFFFFFFFFul);

    CRegVal text("abc");
    EXPECT_EQ(text.GetType(), 1u);
    EXPECT_EQ(Bytes(text), std::string("abc", 4));
    CRegVal null(static_cast<const char *>(nullptr));
    EXPECT_EQ(Bytes(null), std::string("", 1));
    CRegVal expand;
    expand.SetValue("%PATH%", 1);
    EXPECT_EQ(expand.GetType(), 2u);

    unsigned char raw[] = {0, 1, 2};
    CRegVal binary(raw, 3);
    raw[0] = 9;  // copied, not referenced
    EXPECT_EQ(binary.GetType(), 3u);
    EXPECT_EQ(Bytes(binary), std::string("\0\1\2", 3));

    CRegVal list(CStringArray{"one", "", "three"});
    EXPECT_EQ(list.GetType(), 7u);
    EXPECT_EQ(Bytes(list), std::string("one\0\0three\0\0", 12));
    CRegVal empty(CStringArray{});
    EXPECT_EQ(Bytes(empty), std::string("\0\0", 2));
    const char *strings[] = {"a", "bc"};
    CRegVal fromPointers;
    fromPointers.SetValue(strings, 2);
    EXPECT_EQ(Bytes(fromPointers), std::string("a\0bc\0\0", 6));
}

TEST(RegValTest, ReadsAcceptOnlyTheirTypesAndLeaveTheArgumentOtherwise) {
    struct Row {
        unsigned long type;
        int number, buffer, pointer, text, list;
    };
    // Which GetValue overloads accept which registry type.
    const Row rows[] = {
        {1, 0, 0, 1, 1, 0}, {2, 0, 0, 1, 1, 0}, {3, 0, 1, 0, 0, 0}, {4, 1, 0, 0, 0, 0},
        {5, 1, 0, 0, 0, 0}, {6, 0, 0, 1, 1, 0}, {7, 0, 0, 1, 0, 1}, {8, 0, 1, 0, 0, 0},
        {9, 0, 1, 0, 0, 0}, {0, 0, 0, 0, 0, 0}, {11, 0, 0, 0, 0, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.type);
        CRegVal value(CStringArray{"x", "y"});  // 5 bytes: "x\0y\0\0"
        value.SetType(row.type);
        unsigned long number = 77;
        EXPECT_EQ(value.GetValue(number), row.number);
        if (!row.number) {
            EXPECT_EQ(number, 77u);
        }
        unsigned char storage[5] = {1, 1, 1, 1, 1};
        unsigned char *buffer = storage;
        EXPECT_EQ(value.GetValue(buffer, 5), row.buffer);
        EXPECT_EQ(storage[0], row.buffer ? 'x' : 1);
        const char *pointer = nullptr;
        EXPECT_EQ(value.GetValue(pointer), row.pointer);
        if (row.pointer) {
            EXPECT_EQ(pointer, reinterpret_cast<const char *>(value.GetRawData()));
        }
        std::string text = "keep";
        EXPECT_EQ(value.GetValue(text), row.text);
        EXPECT_EQ(text, row.text ? "x" : "keep");
        CStringArray list{"keep"};
        EXPECT_EQ(value.GetValue(list), row.list);
        EXPECT_EQ(list, row.list ? (CStringArray{"x", "y"}) : (CStringArray{"keep"}));
    }
}

TEST(RegValTest, ShortOrUnterminatedDataReadsSafely) {
    CRegVal shortNumber(reinterpret_cast<unsigned char *>(const_cast<char *>("\x05")), 1);
    shortNumber.SetType(4);
    unsigned long number = 0;
    ASSERT_EQ(shortNumber.GetValue(number), 1);
    EXPECT_EQ(number, 5u);

    CRegVal unterminated(reinterpret_cast<unsigned char *>(const_cast<char *>("abc")), 3);
    unterminated.SetType(1);
    std::string text;
    ASSERT_EQ(unterminated.GetValue(text), 1);
    EXPECT_EQ(text, "abc");
    const char *pointer = nullptr;
    ASSERT_EQ(unterminated.GetValue(pointer), 1);
    EXPECT_STREQ(pointer, "abc");

    CRegVal nothing;
    nothing.SetType(1);
    ASSERT_EQ(nothing.GetValue(pointer), 1);
    EXPECT_STREQ(pointer, "");
}

TEST(RegValTest, ACopySharesTheBytesAndOutlivesItsSource) {
    auto *source = new CRegVal("shared");
    CRegVal copy;
    copy = *source;
    EXPECT_EQ(copy.GetRawData(), source->GetRawData());
    EXPECT_EQ(copy.GetType(), 1u);
    delete source;
    std::string text;
    ASSERT_EQ(copy.GetValue(text), 1);
    EXPECT_EQ(text, "shared");

    // A new value for one sharer leaves the other as it was.
    CRegVal other(copy);
    other = 5ul;
    EXPECT_EQ(other.GetType(), 4u);
    ASSERT_EQ(copy.GetValue(text), 1);
    EXPECT_EQ(text, "shared");

    // Setting a value from its own bytes.
    copy.SetValue(reinterpret_cast<const char *>(copy.GetRawData()) + 2, 0);
    ASSERT_EQ(copy.GetValue(text), 1);
    EXPECT_EQ(text, "ared");
}

}  // namespace
