// Every settings test keeps its hives in files of a fresh temporary folder,
// never in the user's own configuration.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

#include "qor/settings/RegistryStore.h"

namespace settings_test {

inline const HKEY kAllHives[] = {HKEY_CLASSES_ROOT,      HKEY_CURRENT_USER,   HKEY_LOCAL_MACHINE,
                                 HKEY_USERS,             HKEY_PERFORMANCE_DATA, HKEY_CURRENT_CONFIG};

// A temporary folder that holds one store file per hive while it lives.
class TempHives {
public:
    TempHives() {
        std::string pattern = (std::filesystem::temp_directory_path() / "qor-settings-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        for (HKEY hive : kAllHives) qor::SetRegistryHiveFile(hive, File(hive));
    }
    ~TempHives() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    TempHives(const TempHives &) = delete;
    TempHives &operator=(const TempHives &) = delete;

    std::string File(HKEY hive) const { return folder + "/" + qor::RegistryHiveName(hive) + ".db"; }
    const std::string &Folder() const { return folder; }

private:
    std::string folder;
};

class SettingsTest : public ::testing::Test {
protected:
    void SetUp() override { openKeysBefore = qor::registry::OpenKeyCount(); }
    void TearDown() override {
        // Every operation closes what it opened.
        EXPECT_EQ(qor::registry::OpenKeyCount(), openKeysBefore);
    }
    TempHives hives;
    std::size_t openKeysBefore = 0;
};

}  // namespace settings_test
