#include "qor/host/OSVersionInfo.h"

#include <sys/utsname.h>

#include <cstdio>
#include <cstring>
#include <optional>

namespace {

// One row of the version table: a major version, an optional minor and
// platform to match, and the code. The first matching row of a major wins;
// a major without a matching row gives 0.
struct OSVersionRow {
    unsigned major;
    std::optional<unsigned> minor;
    std::optional<unsigned> platform;
    int code;
};

constexpr OSVersionRow kOSVersionTable[] = {
    {3, 51, std::nullopt, 1},
    {4, 0, VER_PLATFORM_WIN32_NT, 2},
    {4, 0, VER_PLATFORM_WIN32_WINDOWS, 3},
    {4, 10, std::nullopt, 4},
    {4, 90, std::nullopt, 5},
    {5, 0, std::nullopt, 6},
    {5, 1, std::nullopt, 7},
    {5, 2, std::nullopt, 8},
    {6, std::nullopt, std::nullopt, 9},
};

}  // namespace

int OSVersionInfo::CodeFor(unsigned major, unsigned minor, unsigned platform) {
    for (const OSVersionRow &row : kOSVersionTable) {
        if (row.major != major) continue;
        if (row.minor && *row.minor != minor) continue;
        if (row.platform && *row.platform != platform) continue;
        return row.code;
    }
    return 0;
}

int OSVersionInfo::GetOSVersionInfo() {
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;
    if (!qor::GetVersionExA(&info)) return 0;
    if (info.dwMajorVersion < 3 || info.dwMajorVersion > 6) return 0;
    return CodeFor(info.dwMajorVersion, info.dwMinorVersion, info.dwPlatformId);
}

namespace qor {

BOOL GetVersionExA(OSVERSIONINFOA *info) {
    if (info == nullptr || info->dwOSVersionInfoSize != sizeof(OSVERSIONINFOA)) return FALSE;
    utsname name{};
    if (::uname(&name) != 0) return FALSE;
    unsigned major = 0, minor = 0, build = 0;
    if (std::sscanf(name.release, "%u.%u.%u", &major, &minor, &build) < 1) return FALSE;
    info->dwMajorVersion = major;
    info->dwMinorVersion = minor;
    info->dwBuildNumber = build;
    info->dwPlatformId = VER_PLATFORM_WIN32_NT;
    std::snprintf(info->szCSDVersion, sizeof info->szCSDVersion, "%s", name.version);
    return TRUE;
}

}  // namespace qor
