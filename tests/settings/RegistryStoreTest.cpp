// The store underneath CRegistry: names, orders, handles, rights, hives.
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "SettingsTestSupport.h"
#include "qor/settings/Registry.h"

namespace {

namespace reg = qor::registry;
using settings_test::SettingsTest;

class RegistryStoreTest : public SettingsTest {
protected:
    HKEY Create(const char *path, HKEY root = HKEY_CURRENT_USER) {
        HKEY key = nullptr;
        EXPECT_EQ(reg::CreateKey(root, path, reg::kAllAccess, &key), reg::kSuccess) << path;
        return key;
    }
    HKEY Open(const char *path, reg::REGSAM access = reg::kRead) {
        HKEY key = nullptr;
        EXPECT_EQ(reg::OpenKey(HKEY_CURRENT_USER, path, access, &key), reg::kSuccess) << path;
        return key;
    }
    std::vector<std::string> SubKeys(HKEY key) {
        std::vector<std::string> names;
        std::string name;
        for (DWORD i = 0; reg::EnumKey(key, i, &name) == reg::kSuccess; ++i) names.push_back(name);
        return names;
    }
    std::vector<std::string> ValueNames(HKEY key) {
        std::vector<std::string> names;
        std::string name;
        for (DWORD i = 0; reg::EnumValue(key, i, &name, nullptr, nullptr) == reg::kSuccess; ++i)
            names.push_back(name);
        return names;
    }
    void Set(HKEY key, const char *name, const std::string &text) {
        ASSERT_EQ(reg::SetValue(key, name, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1)),
                  reg::kSuccess);
    }
};

TEST_F(RegistryStoreTest, NamesMatchWithoutCaseAndKeepTheCaseTheyWereMadeWith) {
    HKEY key = Create("Software\\Vendor\\Device");
    Set(key, "SerialPort", "COM1");
    Set(key, "SERIALPORT", "COM2");  // the same value
    EXPECT_EQ(ValueNames(key), std::vector<std::string>{"SerialPort"});
    std::string data;
    EXPECT_EQ(reg::QueryValue(key, "serialport", nullptr, &data), reg::kSuccess);
    EXPECT_EQ(data, std::string("COM2", 5));
    reg::CloseKey(key);

    reg::CloseKey(Open("SOFTWARE\\vendor\\DEVICE"));
    HKEY root = Open("software");
    EXPECT_EQ(SubKeys(root), std::vector<std::string>{"Vendor"});
    reg::CloseKey(root);
}

TEST_F(RegistryStoreTest, SubkeysComeInNameOrderWithLettersFoldedToUpperCase) {
    HKEY key = Create("Order");
    for (const char *name : {"beta", "Device_B", "DeviceA", "alpha", "Zeta", "10", "9"}) reg::CloseKey(Create(name, key));
    // '_' sorts after the letters once they are upper case, as the registry sorts.
    EXPECT_EQ(SubKeys(key), (std::vector<std::string>{"10", "9", "alpha", "beta", "DeviceA", "Device_B", "Zeta"}));
    reg::CloseKey(key);
}

TEST_F(RegistryStoreTest, ValuesComeInTheOrderTheyWereFirstWritten) {
    HKEY key = Create("Values");
    Set(key, "zulu", "1");
    Set(key, "alpha", "2");
    Set(key, "mike", "3");
    Set(key, "ZULU", "4");  // rewriting keeps the place
    ASSERT_EQ(reg::DeleteValue(key, "alpha"), reg::kSuccess);
    Set(key, "alpha", "5");  // deleted and written again: last
    EXPECT_EQ(ValueNames(key), (std::vector<std::string>{"zulu", "mike", "alpha"}));
    reg::CloseKey(key);
}

TEST_F(RegistryStoreTest, QueryInfoKeyCountsAndMeasuresInBytes) {
    HKEY key = Create("Info");
    reg::CloseKey(Create("short", key));
    reg::CloseKey(Create("a longer name", key));
    const unsigned char blob[300] = {};
    ASSERT_EQ(reg::SetValue(key, "v", REG_BINARY, blob, sizeof blob), reg::kSuccess);
    Set(key, "value name", "x");
    reg::KeyInfo info;
    ASSERT_EQ(reg::QueryInfoKey(key, &info), reg::kSuccess);
    EXPECT_EQ(info.subKeys, 2u);
    EXPECT_EQ(info.maxSubKeyLength, 13u);
    EXPECT_EQ(info.values, 2u);
    EXPECT_EQ(info.maxValueNameLength, 10u);
    EXPECT_EQ(info.maxValueLength, 300u);
    reg::CloseKey(key);
}

TEST_F(RegistryStoreTest, RefusesWhatTheRegistryRefuses) {
    HKEY key = nullptr;
    EXPECT_EQ(reg::OpenKey(HKEY_CURRENT_USER, "Missing", reg::kRead, &key), reg::kFileNotFound);
    EXPECT_EQ(reg::CreateKey(HKEY_CURRENT_USER, "\\Leading", reg::kAllAccess, &key), reg::kBadPathName);
    EXPECT_EQ(reg::CreateKey(HKEY_CURRENT_USER, "a\\\\b", reg::kAllAccess, &key), reg::kBadPathName);
    EXPECT_EQ(reg::CreateKey(HKEY_CURRENT_USER, std::string(256, 'n').c_str(), reg::kAllAccess, &key),
              reg::kInvalidParameter);
    EXPECT_EQ(reg::QueryInfoKey(reinterpret_cast<HKEY>(std::uintptr_t{0x12345678}), nullptr),
              reg::kInvalidHandle);

    // A key opened for reading cannot be written through.
    reg::CloseKey(Create("Rights"));
    key = Open("Rights");
    EXPECT_EQ(reg::SetValue(key, "v", REG_DWORD, "\1\0\0\0", 4), reg::kAccessDenied);
    EXPECT_EQ(reg::CreateKey(key, "Child", reg::kAllAccess, nullptr), reg::kInvalidParameter);
    HKEY child = nullptr;
    EXPECT_EQ(reg::CreateKey(key, "Child", reg::kAllAccess, &child), reg::kAccessDenied);
    reg::CloseKey(key);
    EXPECT_EQ(reg::CloseKey(key), reg::kInvalidHandle);  // spent
    EXPECT_EQ(reg::CloseKey(HKEY_CURRENT_USER), reg::kSuccess);
}

TEST_F(RegistryStoreTest, AKeyWithSubkeysIsNotDeletedAndADeletedKeyTakesNoValues) {
    reg::CloseKey(Create("Parent\\Child"));
    EXPECT_EQ(reg::DeleteKey(HKEY_CURRENT_USER, "Parent"), reg::kAccessDenied);
    EXPECT_EQ(reg::DeleteKey(HKEY_CURRENT_USER, nullptr), reg::kAccessDenied);  // a hive stays

    HKEY child = Create("Parent\\Child");
    Set(child, "v", "x");
    ASSERT_EQ(reg::DeleteKey(HKEY_CURRENT_USER, "Parent\\Child"), reg::kSuccess);
    EXPECT_EQ(reg::SetValue(child, "v", REG_SZ, "y", 2), reg::kKeyDeleted);
    EXPECT_EQ(reg::QueryValue(child, "v", nullptr, nullptr), reg::kFileNotFound);
    reg::CloseKey(child);
    EXPECT_EQ(reg::DeleteKey(HKEY_CURRENT_USER, "Parent"), reg::kSuccess);
}

TEST_F(RegistryStoreTest, KeysCannotNestDeeperThanTheRegistryAllows) {
    std::string path = "d";
    for (unsigned i = 1; i < reg::kMaxKeyDepth; ++i) path += "\\d";
    HKEY deepest = Create(path.c_str());
    HKEY tooDeep = nullptr;
    EXPECT_EQ(reg::CreateKey(deepest, "one more", reg::kAllAccess, &tooDeep), reg::kCantWrite);
    reg::CloseKey(deepest);
}

TEST_F(RegistryStoreTest, EachHiveIsAFileOfItsOwn) {
    CRegistry user(HKEY_CURRENT_USER), machine(HKEY_LOCAL_MACHINE);
    ASSERT_EQ(user.SaveKey("Software\\Qor", "Where", "user"), 1);
    ASSERT_EQ(machine.SaveKey("Software\\Qor", "Where", "machine"), 1);
    std::string where;
    ASSERT_EQ(user.LoadKey("Software\\Qor", "Where", where), 1);
    EXPECT_EQ(where, "user");
    ASSERT_EQ(machine.LoadKey("Software\\Qor", "Where", where), 1);
    EXPECT_EQ(where, "machine");
    EXPECT_TRUE(std::filesystem::exists(hives.File(HKEY_CURRENT_USER)));
    EXPECT_TRUE(std::filesystem::exists(hives.File(HKEY_LOCAL_MACHINE)));
    EXPECT_FALSE(std::filesystem::exists(hives.File(HKEY_USERS)));

    // Pointing a hive elsewhere takes effect for what is opened next.
    const std::string other = hives.Folder() + "/nested/other.db";
    qor::SetRegistryHiveFile(HKEY_CURRENT_USER, other);
    EXPECT_EQ(user.LoadKey("Software\\Qor", "Where", where), 0);
    EXPECT_EQ(user.SaveKey("Software\\Qor", "Where", "elsewhere"), 1);
    EXPECT_TRUE(std::filesystem::exists(other));
}

TEST_F(RegistryStoreTest, AStoreThatIsNoDatabaseFailsCleanly) {
    const std::string bogus = hives.Folder() + "/bogus.db";
    std::ofstream(bogus) << "this is not a database, not even a little bit, and it is long enough";
    qor::SetRegistryHiveFile(HKEY_CURRENT_USER, bogus);
    CRegistry registry;
    EXPECT_EQ(registry.SaveKey("a", "b", "c"), 0);
    std::string text = "untouched";
    EXPECT_EQ(registry.LoadKey("a", "b", text), 0);
    EXPECT_EQ(text, "untouched");
    EXPECT_NE(reg::LastStoreError().find("bogus.db"), std::string::npos) << reg::LastStoreError();
}

TEST_F(RegistryStoreTest, AKeyDeletedAndMadeAgainIsFoundAnewByEveryConnection) {
    CRegistry registry;
    ASSERT_EQ(registry.SaveKey("A\\B", "v", "1"), 1);
    std::string text;
    ASSERT_EQ(registry.LoadKey("A\\B", "v", text), 1);  // the path is known now

    // Another thread has a connection of its own: a change made there...
    std::thread([] {
        CRegistry other;
        EXPECT_EQ(other.DeleteKey("A", nullptr), 1);
        EXPECT_EQ(other.SaveKey("Z", "w", "reuses the freed rows"), 1);
        EXPECT_EQ(other.SaveKey("A\\B", "v", "2"), 1);
    }).join();
    ASSERT_EQ(registry.LoadKey("A\\B", "v", text), 1);
    EXPECT_EQ(text, "2");

    // ... and one made here are both seen.
    ASSERT_EQ(registry.DeleteKey("A", nullptr), 1);
    EXPECT_EQ(registry.LoadKey("A\\B", "v", text), 0);
    ASSERT_EQ(registry.SaveKey("A\\B", "v", "3"), 1);
    ASSERT_EQ(registry.LoadKey("A\\B", "v", text), 1);
    EXPECT_EQ(text, "3");
}

TEST(RegistryHiveNames, FullAndShortNamesMapToThePredefinedHives) {
    struct Row {
        const char *name;
        HKEY hive;
    };
    const Row rows[] = {{"HKEY_CURRENT_USER", HKEY_CURRENT_USER}, {"hkcu", HKEY_CURRENT_USER},
                        {"HKLM", HKEY_LOCAL_MACHINE},             {"HKEY_USERS", HKEY_USERS},
                        {"HKCR", HKEY_CLASSES_ROOT},              {"HKCC", HKEY_CURRENT_CONFIG}};
    for (const Row &row : rows) {
        HKEY hive = nullptr;
        ASSERT_TRUE(qor::RegistryHiveFromName(row.name, &hive)) << row.name;
        EXPECT_EQ(hive, row.hive) << row.name;
    }
    HKEY hive = nullptr;
    EXPECT_FALSE(qor::RegistryHiveFromName("HKEY_NOWHERE", &hive));
    EXPECT_EQ(qor::RegistryHiveName(HKEY_LOCAL_MACHINE), "HKEY_LOCAL_MACHINE");
}

TEST(RegistryHiveNames, HivesLiveInTheUsersConfigurationFolderUnlessPointedElsewhere) {
    const char *saved = std::getenv("XDG_CONFIG_HOME");
    const std::string keep = saved ? saved : "";
    setenv("XDG_CONFIG_HOME", "/somewhere/config", 1);
    qor::SetRegistryHiveFile(HKEY_CURRENT_CONFIG, "/x/y.db");
    EXPECT_EQ(qor::RegistryHiveFile(HKEY_CURRENT_CONFIG), "/x/y.db");
    qor::SetRegistryHiveFile(HKEY_CURRENT_CONFIG, "");  // back to the default
    EXPECT_EQ(qor::RegistryHiveFile(HKEY_CURRENT_CONFIG),
              "/somewhere/config/qor/registry/HKEY_CURRENT_CONFIG.db");
    if (saved)
        setenv("XDG_CONFIG_HOME", keep.c_str(), 1);
    else
        unsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(qor::RegistryHiveFile(reinterpret_cast<HKEY>(std::uintptr_t{0x1234})).empty());
}

}  // namespace
