// RegistryMap: typed access by id, its text forms, result codes, load and save.
#include <string>

#include "SettingsTestSupport.h"
#include "qor/settings/RegistryMap.h"

namespace {

using settings_test::SettingsTest;

enum Id { Flag = 1, Letter, Byte, Small, Port, Count, Mask, Ratio, Name, Unknown = 99 };

const RegistryMapInfo &Table() {
    static const RegistryMapInfo table = {
        {Flag, {"Flag", 1, "1"}},     {Letter, {"Letter", 2, "65"}}, {Byte, {"Byte", 3, "200"}},
        {Small, {"Small", 4, "-5"}},  {Port, {"Port", 5, "8080"}},   {Count, {"Count", 6, "12"}},
        {Mask, {"Mask", 7, "255"}},   {Ratio, {"Ratio", 8, "0.25"}}, {Name, {"Name", 9, "robot"}},
    };
    return table;
}

// Stores `value` for `id`, checks that it reads back the same and returns
// the text the map saves for it.
template <class T>
std::string Stored(RegistryMap &map, int id, T value) {
    EXPECT_EQ(map.SetValue(id, value), 0);
    T back{};
    EXPECT_EQ(map.GetValue(id, back), 0);
    EXPECT_EQ(back, value);
    CRegistry registry;
    map.SaveValues(registry, "Probe");
    std::string text;
    EXPECT_EQ(registry.LoadKey("Probe", Table().at(id).name.c_str(), text), 1);
    return text;
}

// Reads `id` as the type T its table row declares, widened for comparison.
template <class T>
double ReadAs(const RegistryMap &map, int id) {
    T value{};
    EXPECT_EQ(map.GetValue(id, value), 0);
    return static_cast<double>(value);
}
using Reader = double (*)(const RegistryMap &, int);
// By declared type: 1 bool ... 8 double.
const Reader kReaders[] = {nullptr,          ReadAs<bool>,  ReadAs<char>,          ReadAs<unsigned char>,
                           ReadAs<short>,    ReadAs<unsigned short>, ReadAs<long>, ReadAs<unsigned long>,
                           ReadAs<double>};

class RegistryMapTest : public SettingsTest {};

TEST_F(RegistryMapTest, EachTypeHasItsTextForm) {
    RegistryMap map(Table());
    EXPECT_EQ(Stored(map, Flag, true), "1");
    EXPECT_EQ(Stored(map, Flag, false), "0");
    EXPECT_EQ(Stored<char>(map, Letter, -3), "-3");
    EXPECT_EQ(Stored<unsigned char>(map, Byte, 250), "250");
    EXPECT_EQ(Stored<short>(map, Small, -32768), "-32768");
    EXPECT_EQ(Stored<unsigned short>(map, Port, 65535), "65535");
    EXPECT_EQ(Stored<long>(map, Count, -7), "-7");
    // A 32-bit unsigned long above 0x7FFFFFFF is written as a negative number.
    EXPECT_EQ(Stored<unsigned long>(map, Mask, 0xFFFFFFFFul), "-1");
    EXPECT_EQ(Stored<unsigned long>(map, Mask, 0x80000000ul), "-2147483648");
    EXPECT_EQ(Stored(map, Ratio, 1.5), "1.500000");
    EXPECT_EQ(Stored<std::string>(map, Name, "arm 2"), "arm 2");
}

TEST_F(RegistryMapTest, TextsReadBackAsTheRuntimeConvertsThem) {
    struct Row {
        int id;
        const char *text;
        double expected;
    };
    const Row rows[] = {
        {Flag, "", 1},         {Flag, "0", 0},         {Flag, "00", 1},       {Flag, "false", 1},
        {Letter, "300", 44},   {Byte, "-1", 255},      {Byte, "x", 0},        {Small, "70000", 4464},
        {Port, "-1", 65535},   {Count, " 42abc", 42},  {Count, "99999999999", 2147483647},
        {Mask, "4294967295", 2147483647},               {Mask, "-2", 4294967294}, {Ratio, "1.5", 1.5},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(std::string(row.text) + " for id " + std::to_string(row.id));
        RegistryMapInfo table = Table();
        table.at(row.id).defaultValue = row.text;
        RegistryMap map(table);
        map.LoadDefaultValues();
        EXPECT_EQ(kReaders[table.at(row.id).type](map, row.id), row.expected);
    }
}

TEST_F(RegistryMapTest, ResultCodesTellUnknownIdWrongTypeAndNoValue) {
    RegistryMap map(Table());
    long count = 77;
    EXPECT_EQ(map.GetValue(Count, count), 3);  // known, but nothing loaded
    EXPECT_EQ(map.GetValue(Unknown, count), 1);
    bool flag = true;
    EXPECT_EQ(map.GetValue(Count, flag), 2);
    EXPECT_EQ(count, 77);

    ASSERT_EQ(map.SetValue(Count, 5l), 0);
    EXPECT_EQ(map.SetValue(Count, true), 2);  // declared as long: the value stays
    EXPECT_EQ(map.SetValue(Unknown, 1.0), 1);
    ASSERT_EQ(map.GetValue(Count, count), 0);
    EXPECT_EQ(count, 5);
}

TEST_F(RegistryMapTest, LoadFallsBackToDefaultsAndSaveWritesOnlyCurrentValues) {
    CRegistry registry;
    ASSERT_EQ(registry.SaveKey("Drivers\\Arm", "Port", "9000"), 1);
    ASSERT_EQ(registry.SaveKey("Drivers\\Arm", "Count", 3ul), 1);  // not a string: default

    RegistryMap map(Table());
    map.LoadValues(registry, "Drivers\\Arm");
    EXPECT_EQ(ReadAs<unsigned short>(map, Port), 9000);
    EXPECT_EQ(ReadAs<long>(map, Count), 12);
    std::string name;
    ASSERT_EQ(map.GetValue(Name, name), 0);
    EXPECT_EQ(name, "robot");

    map.LoadValues(registry, "Drivers\\Missing");  // nothing there: all defaults
    EXPECT_EQ(ReadAs<unsigned short>(map, Port), 8080);

    RegistryMap copy(map);
    copy.Clear();
    copy.SaveValues(registry, "Drivers\\Empty");
    EXPECT_EQ(registry.HasEntries("Drivers\\Empty", nullptr, nullptr), 0);
    EXPECT_EQ(Stored<std::string>(copy, Name, "gripper"), "gripper");
    unsigned long values = 0;  // only the one current value is saved
    EXPECT_EQ(registry.HasEntries("Probe", nullptr, &values), 1);
    EXPECT_EQ(values, 1u);
    ASSERT_EQ(map.GetValue(Name, name), 0);  // the copy's values are its own
    EXPECT_EQ(name, "robot");
}

}  // namespace
