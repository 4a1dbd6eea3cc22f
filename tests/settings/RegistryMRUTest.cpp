// RegistryMRU: order, case rules, limits, loading with gaps, saving.
#include <string>
#include <vector>

#include "SettingsTestSupport.h"
#include "qor/settings/RegistryMRU.h"

namespace {

using settings_test::SettingsTest;
using Entries = std::vector<std::string>;

const char *const kKey = "Software\\Lab\\Recent";

class RegistryMRUTest : public SettingsTest {
protected:
    Entries Stored() {
        CRegistry registry;
        Entries names;
        for (int i = 0; i < 10; ++i) {
            std::string text;
            if (registry.LoadKey(kKey, ("MRU " + std::to_string(i)).c_str(), text))
                names.push_back("MRU " + std::to_string(i) + "=" + text);
        }
        return names;
    }
    static Entries List(RegistryMRU &mru) {
        Entries out{"stale"};
        mru.EnumerateMRUs(out);
        return out;
    }
};

TEST_F(RegistryMRUTest, AddingPutsTextInFrontOnceAndDropsTheOldest) {
    RegistryMRU mru(kKey, HKEY_CURRENT_USER, 3, true);
    mru.AddMRU("a");
    mru.AddMRU("b");
    mru.AddMRU("a");
    EXPECT_EQ(List(mru), (Entries{"a", "b"}));
    mru.PushFrontMRU("c");
    mru.AddMRU("d");
    EXPECT_EQ(List(mru), (Entries{"d", "c", "a"}));
    mru.DeleteMRU("c");
    EXPECT_EQ(List(mru), (Entries{"d", "a"}));
}

TEST_F(RegistryMRUTest, CaseDecidesWhatCountsAsTheSameEntry) {
    {
        RegistryMRU exact(kKey, HKEY_CURRENT_USER, 5, true);
        exact.AddMRU("abc");
        exact.AddMRU("ABC");
        EXPECT_EQ(List(exact), (Entries{"ABC", "abc"}));
        exact.DeleteMRUs();
    }
    RegistryMRU folded("Other", HKEY_CURRENT_USER, 5, false);
    folded.AddMRU("abc");
    folded.AddMRU("x");
    folded.AddMRU("ABC");
    EXPECT_EQ(List(folded), (Entries{"ABC", "x"}));
    folded.DeleteMRU("Abc");
    EXPECT_EQ(List(folded), (Entries{"x"}));
}

TEST_F(RegistryMRUTest, LoadingClosesGapsAndSavingLeavesHigherNumbersBehind) {
    CRegistry registry;
    ASSERT_EQ(registry.SaveKey(kKey, "MRU 0", "zero"), 1);
    ASSERT_EQ(registry.SaveKey(kKey, "MRU 2", "two"), 1);
    {
        RegistryMRU mru(kKey, HKEY_CURRENT_USER, 5, true);
        EXPECT_EQ(List(mru), (Entries{"zero", "two"}));
    }
    EXPECT_EQ(Stored(), (Entries{"MRU 0=zero", "MRU 1=two", "MRU 2=two"}));

    // A list emptied in memory leaves the registry as it was, so it all comes back.
    {
        RegistryMRU mru(kKey, HKEY_CURRENT_USER, 5, true);
        mru.DeleteMRUs();
    }
    {
        RegistryMRU reloaded(kKey, HKEY_CURRENT_USER, 5, true);
        EXPECT_EQ(List(reloaded), (Entries{"zero", "two"}));  // doubles collapse, the later one's place
    }

    // Without case, "a" and "A" are doubles too, and the later one wins.
    ASSERT_EQ(registry.SaveKey(kKey, "MRU 0", "a"), 1);
    ASSERT_EQ(registry.SaveKey(kKey, "MRU 1", "b"), 1);
    ASSERT_EQ(registry.SaveKey(kKey, "MRU 2", "A"), 1);
    RegistryMRU folded(kKey, HKEY_CURRENT_USER, 5, false);
    EXPECT_EQ(List(folded), (Entries{"b", "A"}));
}

TEST_F(RegistryMRUTest, ALimitOfZeroLoadsAndSavesNothing) {
    CRegistry registry;
    ASSERT_EQ(registry.SaveKey(kKey, "MRU 0", "kept"), 1);
    {
        RegistryMRU mru(kKey, HKEY_CURRENT_USER, 0, true);
        EXPECT_EQ(List(mru), Entries{});
        mru.AddMRU("never");
        EXPECT_EQ(List(mru), Entries{});
    }
    EXPECT_EQ(Stored(), Entries{"MRU 0=kept"});
}

TEST_F(RegistryMRUTest, TheDestructorSavesToTheHiveItWasGivenAndTheNextListLoads) {
    {
        RegistryMRU mru(kKey, HKEY_LOCAL_MACHINE, 4, true);
        mru.AddMRU("first.xml");
        mru.AddMRU("second.xml");
    }
    EXPECT_EQ(Stored(), Entries{});  // nothing in the user's hive
    RegistryMRU again(kKey, HKEY_LOCAL_MACHINE, 4, true);
    EXPECT_EQ(List(again), (Entries{"second.xml", "first.xml"}));
}

}  // namespace
