// The installation record in a real store file: first run, days, trials,
// a clock turned back, and records edited by hand.
#include <gtest/gtest.h>

#include "qor/licensing/InstallationTime.h"
#include "qor/settings/Registry.h"
#include "settings/SettingsTestSupport.h"

namespace {

constexpr char kKey[] = "Software\\Ostrander\\Scheduler";
constexpr std::time_t kDay = 24 * 60 * 60;
constexpr std::time_t kInstalled = 1700000000;  // 2023-11-14 22:13:20 UTC

class InstallationTime : public settings_test::SettingsTest {
protected:
    // The record as it stands in the store.
    std::string StoredBytes() {
        CRegVal value;
        if (!registry.LoadKey(kKey, "Installation", value)) return {};
        return std::string(reinterpret_cast<const char *>(value.GetRawData()), value.GetSize());
    }
    CRegistry registry;
    CInstallationTime installation{kKey};
};

TEST_F(InstallationTime, CountsDaysFromTheFirstRun) {
    EXPECT_EQ(installation.Read(), CInstallationTime::NotRecorded);
    EXPECT_EQ(installation.Check(kInstalled), CInstallationTime::FirstRun);
    EXPECT_EQ(installation.Check(kInstalled + 3 * kDay + 5), CInstallationTime::Recorded);

    CInstallationTime later(kKey);  // another start of the program
    EXPECT_EQ(later.Read(), CInstallationTime::Recorded);
    EXPECT_EQ(later.GetFirstRun(), kInstalled);
    EXPECT_EQ(later.GetLastSeen(), kInstalled + 3 * kDay + 5);
    EXPECT_EQ(later.DaysSinceInstallation(kInstalled + 3 * kDay + 5), 3);
    EXPECT_FALSE(later.IsTrialExpired(30, kInstalled + 30 * kDay - 1));
    EXPECT_TRUE(later.IsTrialExpired(30, kInstalled + 30 * kDay));
    EXPECT_EQ(later.GetPlace(), "HKEY_CURRENT_USER\\Software\\Ostrander\\Scheduler\\Installation");
}

TEST_F(InstallationTime, ClockTurnedBackGainsNothing) {
    installation.Check(kInstalled);
    installation.Check(kInstalled + 20 * kDay);
    // Within the tolerance (a clock set right) nothing is said, and last-seen stays.
    EXPECT_EQ(installation.Check(kInstalled + 20 * kDay - kDay), CInstallationTime::Recorded);
    EXPECT_EQ(installation.Check(kInstalled + 2 * kDay), CInstallationTime::ClockTurnedBack);
    EXPECT_EQ(installation.GetLastSeen(), kInstalled + 20 * kDay);
    EXPECT_EQ(installation.DaysSinceInstallation(kInstalled + 2 * kDay), 20);
    EXPECT_TRUE(installation.IsTrialExpired(14, kInstalled + 2 * kDay));
    EXPECT_EQ(CInstallationTime(kKey).Read(), CInstallationTime::Recorded);

    installation.SetClockTolerance(0);
    EXPECT_EQ(installation.Check(kInstalled + 20 * kDay - 1), CInstallationTime::ClockTurnedBack);
}

// Every edit by hand, and a record moved elsewhere, is Tampered: the record
// stays as it was, and a trial counts as over.
TEST_F(InstallationTime, EditedOrMovedRecordsAreTampered) {
    installation.Check(kInstalled);
    const std::string sealed = StoredBytes();
    ASSERT_EQ(sealed.size(), 49u);

    std::vector<CRegVal> edits;
    for (std::size_t i = 0; i < sealed.size(); ++i) {
        std::string bytes = sealed;
        bytes[i] = static_cast<char>(bytes[i] ^ 0x04);
        edits.emplace_back(reinterpret_cast<unsigned char *>(bytes.data()), 49);
    }
    std::string shorter = sealed.substr(0, 48), longer = sealed + '\0';
    edits.emplace_back(reinterpret_cast<unsigned char *>(shorter.data()), 48);
    edits.emplace_back(reinterpret_cast<unsigned char *>(longer.data()), 50);
    edits.emplace_back("2023-11-14");
    edits.emplace_back(1700000000ul);
    CRegVal retyped(reinterpret_cast<unsigned char *>(const_cast<char *>(sealed.data())), 49);
    retyped.SetType(1);
    edits.push_back(retyped);

    for (std::size_t i = 0; i < edits.size(); ++i) {
        ASSERT_EQ(registry.SaveKey(kKey, "Installation", edits[i]), 1);
        const std::string edited = StoredBytes();
        EXPECT_EQ(installation.Check(kInstalled + kDay), CInstallationTime::Tampered) << "edit " << i;
        EXPECT_EQ(StoredBytes(), edited) << "edit " << i;
        EXPECT_EQ(installation.DaysSinceInstallation(kInstalled), -1);
        EXPECT_TRUE(installation.IsTrialExpired(1000, kInstalled));
    }

    // Sealed for one place, the record is no good in another.
    CRegVal original(reinterpret_cast<unsigned char *>(const_cast<char *>(sealed.data())), 49);
    ASSERT_EQ(registry.SaveKey("Software\\Ostrander\\Reader", "Installation", original), 1);
    ASSERT_EQ(registry.SaveKey(kKey, "FirstRun", original), 1);
    EXPECT_EQ(CInstallationTime("Software\\Ostrander\\Reader").Read(), CInstallationTime::Tampered);
    EXPECT_EQ(CInstallationTime(kKey, "FirstRun").Read(), CInstallationTime::Tampered);
    // Registry names ignore case, and so does the seal.
    ASSERT_EQ(registry.SaveKey(kKey, "Installation", original), 1);
    EXPECT_EQ(CInstallationTime("SOFTWARE\\ostrander\\scheduler\\", "INSTALLATION").Read(),
              CInstallationTime::Recorded);
}

TEST_F(InstallationTime, AStoreThatFailsRestartsNothing) {
    qor::SetRegistryHiveFile(HKEY_CURRENT_USER, "/proc/qor-no-such-folder/store.db");
    EXPECT_EQ(installation.Check(kInstalled), CInstallationTime::StoreFailed);
    EXPECT_TRUE(installation.IsTrialExpired(30, kInstalled));
    qor::SetRegistryHiveFile(HKEY_CURRENT_USER, hives.File(HKEY_CURRENT_USER));
    EXPECT_EQ(installation.Read(), CInstallationTime::NotRecorded);
}

}  // namespace
