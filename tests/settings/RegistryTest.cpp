// CRegistry: loading, saving, deleting, copying and walking keys.
#include <string>
#include <vector>

#include "SettingsTestSupport.h"
#include "qor/settings/Registry.h"

namespace {

using settings_test::SettingsTest;

class RegistryTest : public SettingsTest {
protected:
    CRegistry registry;
};

TEST_F(RegistryTest, EveryOverloadRoundTripsItsType) {
    ASSERT_EQ(registry.SaveKey("App", "Text", "hello"), 1);
    ASSERT_EQ(registry.SaveKey("App", "Number", 4000000000ul), 1);
    ASSERT_EQ(registry.SaveKey("App", "List", CStringArray{"a", "b"}), 1);
    unsigned char raw[] = {9, 8, 7};
    ASSERT_EQ(registry.SaveKey("App", "Blob", raw, 3), 1);
    CRegVal big(5ul);
    big.SetType(5);
    ASSERT_EQ(registry.SaveKey("App", "Big", big), 1);

    std::string text;
    EXPECT_EQ(registry.LoadKey("App", "Text", text), 1);
    EXPECT_EQ(text, "hello");
    unsigned long number = 0;
    EXPECT_EQ(registry.LoadKey("App", "Number", number), 1);
    EXPECT_EQ(number, 4000000000ul);
    EXPECT_EQ(registry.LoadKey("App", "Big", number), 1);  // type 5, bytes as stored
    EXPECT_EQ(number, 5u);
    CStringArray list;
    EXPECT_EQ(registry.LoadKey("App", "List", list), 1);
    EXPECT_EQ(list, (CStringArray{"a", "b"}));
    unsigned char back[3] = {};
    EXPECT_EQ(registry.LoadKey("App", "Blob", back, 3), 1);
    EXPECT_EQ(back[2], 7);
    CRegVal value;
    EXPECT_EQ(registry.LoadKey("App", "Blob", value), 1);
    EXPECT_EQ(value.GetType(), 3u);
    EXPECT_EQ(value.GetSize(), 3u);
}

TEST_F(RegistryTest, FailedLoadsLeaveTheOutputAlone) {
    ASSERT_EQ(registry.SaveKey("App", "Text", "hello"), 1);
    unsigned char raw[] = {1, 2};
    ASSERT_EQ(registry.SaveKey("App", "Blob", raw, 2), 1);
    std::string text = "keep";
    unsigned long number = 42;
    unsigned char buffer[4] = {5, 5, 5, 5};
    EXPECT_EQ(registry.LoadKey("Nowhere", "Text", text), 0);
    EXPECT_EQ(registry.LoadKey("App", "Missing", text), 0);
    EXPECT_EQ(registry.LoadKey("App", "Text", number), 0);  // wrong type
    EXPECT_EQ(registry.LoadKey("App", "Blob", buffer, 4), 0);  // wrong size: too big
    EXPECT_EQ(registry.LoadKey("App", "Blob", buffer, 1), 0);  // and too small
    EXPECT_EQ(text, "keep");
    EXPECT_EQ(number, 42u);
    EXPECT_EQ(buffer[0], 5);
    CRegVal value("before");
    EXPECT_EQ(registry.LoadKey("App", "Missing", value), 0);
    ASSERT_EQ(value.GetValue(text), 1);
    EXPECT_EQ(text, "before");
}

TEST_F(RegistryTest, DeleteRemovesAValueOrAWholeTree) {
    ASSERT_EQ(registry.SaveKey("Tree\\A\\B\\C", "deep", "1"), 1);
    ASSERT_EQ(registry.SaveKey("Tree\\A", "v", "2"), 1);
    ASSERT_EQ(registry.SaveKey("Tree\\D", "w", "3"), 1);
    ASSERT_EQ(registry.SaveKey("Tree", "keep", "4"), 1);

    EXPECT_EQ(registry.DeleteKey("Tree\\A", "v"), 1);
    EXPECT_EQ(registry.DeleteKey("Tree\\A", "v"), 0);  // gone already
    EXPECT_EQ(registry.DeleteKey("Tree\\A", nullptr), 1);
    unsigned long subkeys = 0, values = 0;
    EXPECT_EQ(registry.HasEntries("Tree", &subkeys, &values), 1);
    EXPECT_EQ(subkeys, 1u);  // D is left
    EXPECT_EQ(values, 1u);
    EXPECT_EQ(registry.DeleteKey("Tree", nullptr), 1);
    EXPECT_EQ(registry.HasEntries("Tree", &subkeys, &values), 0);
    EXPECT_EQ(registry.DeleteKey("Tree", nullptr), 0);
}

TEST_F(RegistryTest, CopyKeyCopiesEveryValueAndSubkeyAcrossHives) {
    ASSERT_EQ(registry.SaveKey("Src", "top", 1ul), 1);
    ASSERT_EQ(registry.SaveKey("Src\\Sub\\Leaf", "list", CStringArray{"x"}), 1);
    ASSERT_EQ(registry.SaveKey("Src\\Empty", nullptr, nullptr), 1);
    EXPECT_EQ(registry.CopyKey(HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, "Src", "Dst\\Here"), 0);

    CRegistry machine(HKEY_LOCAL_MACHINE);
    unsigned long number = 0;
    EXPECT_EQ(machine.LoadKey("Dst\\Here", "top", number), 1);
    EXPECT_EQ(number, 1u);
    CStringArray list;
    EXPECT_EQ(machine.LoadKey("Dst\\Here\\Sub\\Leaf", "list", list), 1);
    EXPECT_EQ(list, CStringArray{"x"});
    unsigned long subkeys = 0;
    EXPECT_EQ(machine.HasEntries("Dst\\Here", &subkeys, nullptr), 1);
    EXPECT_EQ(subkeys, 2u);

    EXPECT_NE(registry.CopyKey(HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, "Missing", "Dst2"), 0);
    // A key copied into itself ends at the depth limit instead of looping.
    EXPECT_NE(registry.CopyKey(HKEY_CURRENT_USER, HKEY_CURRENT_USER, "Src", "Src\\Inner"), 0);
}

TEST_F(RegistryTest, ConnectingToAnotherMachineIsRefusedAndKeepsTheRoot) {
    CRegistry machine(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(machine.Connect("LABPC01", HKEY_CURRENT_USER), 0);
    EXPECT_EQ(machine.GetKey(), HKEY_LOCAL_MACHINE);
    EXPECT_EQ(machine.Connect(nullptr, HKEY_CURRENT_USER), 1);
    EXPECT_EQ(machine.GetKey(), HKEY_CURRENT_USER);
}

// Records every hit of a walk as one line, and stops when told.
class RecordingWalk : public CRegistry {
public:
    std::vector<std::string> hits;
    int stopAfter = -1;

    int OnValueHit(const char *path, const char *name, const CRegVal &value, unsigned short depth) override {
        std::string text;
        CRegVal copy(value);
        copy.GetValue(text);
        hits.push_back("V" + std::to_string(depth) + " " + (path ? path : "(null)") + " " + name + "=" + text);
        return Go();
    }
    int OnKeyHit(const char *name, unsigned short depth) override {
        hits.push_back("K" + std::to_string(depth) + " " + name);
        return Go();
    }

private:
    int Go() { return stopAfter < 0 || static_cast<int>(hits.size()) < stopAfter; }
};

class RegistryWalkTest : public RegistryTest {
protected:
    void SetUp() override {
        RegistryTest::SetUp();
        ASSERT_EQ(registry.SaveKey("W", "b", "1"), 1);
        ASSERT_EQ(registry.SaveKey("W", "a", "2"), 1);
        ASSERT_EQ(registry.SaveKey("W\\Y", "c", "3"), 1);
        ASSERT_EQ(registry.SaveKey("W\\X\\Z", "d", "4"), 1);
    }
    RecordingWalk walk;
};

TEST_F(RegistryWalkTest, FlagsChooseValuesKeysOrBothValuesFirst) {
    struct Row {
        unsigned flags;
        std::vector<std::string> hits;
    };
    const Row rows[] = {
        {3, {"V0 W b=1", "V0 W a=2", "K0 X", "K1 Z", "V2 W\\X\\Z d=4", "K0 Y", "V1 W\\Y c=3"}},
        {1, {"V0 W b=1", "V0 W a=2", "V2 W\\X\\Z d=4", "V1 W\\Y c=3"}},
        {2, {"K0 X", "K1 Z", "K0 Y"}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.flags);
        walk.hits.clear();
        EXPECT_EQ(walk.RegistryTreeWalk("W", row.flags), 1);
        EXPECT_EQ(walk.hits, row.hits);
    }
}

TEST_F(RegistryWalkTest, AHookReturningZeroStopsTheWalk) {
    walk.stopAfter = 1;
    EXPECT_EQ(walk.RegistryTreeWalk("W", 3), 0);
    EXPECT_EQ(walk.hits, std::vector<std::string>{"V0 W b=1"});
    walk.hits.clear();
    walk.stopAfter = 4;  // stops at the key hit of Z
    EXPECT_EQ(walk.RegistryTreeWalk("W", 3), 0);
    EXPECT_EQ(walk.hits.back(), "K1 Z");

    // The default hooks stop at once.
    CRegistry plain;
    EXPECT_EQ(plain.RegistryTreeWalk("W", 3), 0);
    EXPECT_EQ(plain.RegistryTreeWalk("Nowhere", 3), 0);
}

TEST_F(RegistryWalkTest, AWalkOfTheRootItselfDoesNotDescend) {
    ASSERT_EQ(registry.SaveKey(nullptr, "rootValue", "r"), 1);
    EXPECT_EQ(walk.RegistryTreeWalk(nullptr, 3), 1);
    EXPECT_EQ(walk.hits, (std::vector<std::string>{"V0 (null) rootValue=r", "K0 W"}));
}

}  // namespace
