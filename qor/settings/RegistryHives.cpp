// The predefined hives: their names, and the file each one is kept in.
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <mutex>
#include <strings.h>

#include "qor/settings/RegistryStore.h"

namespace qor {
namespace {

struct HiveEntry {
    std::uintptr_t value;
    const char *name;
    const char *shortName;
};

const HiveEntry kHives[] = {
    {0x80000000u, "HKEY_CLASSES_ROOT", "HKCR"},
    {0x80000001u, "HKEY_CURRENT_USER", "HKCU"},
    {0x80000002u, "HKEY_LOCAL_MACHINE", "HKLM"},
    {0x80000003u, "HKEY_USERS", "HKU"},
    {0x80000004u, "HKEY_PERFORMANCE_DATA", "HKPD"},
    {0x80000005u, "HKEY_CURRENT_CONFIG", "HKCC"},
};

const HiveEntry *FindHive(HKEY hive) {
    const auto value = reinterpret_cast<std::uintptr_t>(hive);
    for (const HiveEntry &entry : kHives)
        if (entry.value == value) return &entry;
    return nullptr;
}

std::mutex &HiveFilesLock() {
    static std::mutex lock;
    return lock;
}

std::map<std::uintptr_t, std::string> &HiveFiles() {
    static auto *files = new std::map<std::uintptr_t, std::string>;
    return *files;
}

// $XDG_CONFIG_HOME, else ~/.config, with the home folder from the password
// database when HOME is unset.
std::string ConfigDirectory() {
    if (const char *config = std::getenv("XDG_CONFIG_HOME"); config && *config == '/')
        return config;
    const char *home = std::getenv("HOME");
    if (!home || !*home) {
        if (const passwd *user = getpwuid(getuid())) home = user->pw_dir;
    }
    return std::string(home && *home ? home : "/tmp") + "/.config";
}

}  // namespace

void SetRegistryHiveFile(HKEY hive, const std::string &file) {
    const HiveEntry *entry = FindHive(hive);
    if (!entry) return;
    std::lock_guard<std::mutex> guard(HiveFilesLock());
    if (file.empty())
        HiveFiles().erase(entry->value);
    else
        HiveFiles()[entry->value] = file;
}

std::string RegistryHiveFile(HKEY hive) {
    const HiveEntry *entry = FindHive(hive);
    if (!entry) return {};
    {
        std::lock_guard<std::mutex> guard(HiveFilesLock());
        auto found = HiveFiles().find(entry->value);
        if (found != HiveFiles().end()) return found->second;
    }
    return ConfigDirectory() + "/qor/registry/" + entry->name + ".db";
}

bool RegistryHiveFromName(const std::string &name, HKEY *hive) {
    for (const HiveEntry &entry : kHives) {
        if (strcasecmp(name.c_str(), entry.name) == 0 ||
            strcasecmp(name.c_str(), entry.shortName) == 0) {
            *hive = reinterpret_cast<HKEY>(entry.value);
            return true;
        }
    }
    return false;
}

std::string RegistryHiveName(HKEY hive) {
    const HiveEntry *entry = FindHive(hive);
    return entry ? entry->name : std::string();
}

}  // namespace qor
