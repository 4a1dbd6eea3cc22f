// Win32_OperatingSystem: the distribution (/etc/os-release), the kernel
// (procfs), memory and swap (/proc/meminfo, in kilobytes as WMI counts them),
// processes and sessions.
#include <utmp.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <sstream>

#include "qor/host/HostObjects.h"

namespace qor::hostinfo {
namespace {

// CIM's operating system type for Linux.
constexpr int kCimOsTypeLinux = 36;

// KEY=value lines, values unquoted.
std::map<std::string, std::string> ParseKeyValues(const std::string &text) {
    std::map<std::string, std::string> values;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        std::size_t equals = line.find('=');
        if (equals == std::string::npos || line[0] == '#') continue;
        std::string value = TrimmedText(line.substr(equals + 1));
        if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
            value = value.substr(1, value.size() - 2);
        values[TrimmedText(line.substr(0, equals))] = value;
    }
    return values;
}

PropertyValue Lookup(const std::map<std::string, std::string> &values, const char *key) {
    auto it = values.find(key);
    return it == values.end() || it->second.empty() ? std::nullopt : PropertyValue(it->second);
}

// "MemTotal:  16318524 kB" -> kilobytes by name.
std::map<std::string, long long> ReadMemInfo(const std::string &root) {
    std::map<std::string, long long> kilobytes;
    std::istringstream lines(ReadHostText(root, "/proc/meminfo").value_or(""));
    std::string line;
    while (std::getline(lines, line)) {
        std::size_t colon = line.find(':');
        if (colon != std::string::npos)
            kilobytes[line.substr(0, colon)] = std::atoll(line.c_str() + colon + 1);
    }
    return kilobytes;
}

PropertyValue Kilobytes(const std::map<std::string, long long> &info, std::initializer_list<const char *> names) {
    long long sum = 0;
    for (const char *name : names) {
        auto it = info.find(name);
        if (it == info.end()) return std::nullopt;
        sum += it->second;
    }
    return std::to_string(sum);
}

PropertyValue RootDevice(const std::string &root) {
    std::istringstream words(ReadHostText(root, "/proc/cmdline").value_or(""));
    std::string word;
    while (words >> word)
        if (word.compare(0, 5, "root=") == 0 && word.size() > 5) return word.substr(5);
    return std::nullopt;
}

long long CountProcesses(const std::string &root) {
    long long count = 0;
    for (const std::string &name : ListHostFolder(root, "/proc"))
        if (!name.empty() && std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c); }))
            ++count;
    return count;
}

// Sessions of logged-in users in the utmp file.
PropertyValue CountUsers(const std::string &root) {
    PropertyValue records = ReadHostText(root, "/run/utmp");
    if (!records) records = ReadHostText(root, "/var/run/utmp");
    if (!records) return std::nullopt;
    long long users = 0;
    for (std::size_t at = 0; at + sizeof(utmp) <= records->size(); at += sizeof(utmp)) {
        utmp record;
        std::memcpy(&record, records->data() + at, sizeof record);
        if (record.ut_type == USER_PROCESS) ++users;
    }
    return std::to_string(users);
}

PropertyValue TimeZoneMinutes() {
    std::time_t now = std::time(nullptr);
    std::tm local{};
    if (::localtime_r(&now, &local) == nullptr) return std::nullopt;
    return std::to_string(local.tm_gmtoff / 60);
}

}  // namespace

std::vector<HostObject> ReadOperatingSystem(const std::string &root) {
    auto release = ParseKeyValues(
        ReadHostText(root, "/etc/os-release").value_or(ReadHostText(root, "/usr/lib/os-release").value_or("")));
    auto locale = ParseKeyValues(
        ReadHostText(root, "/etc/locale.conf").value_or(ReadHostText(root, "/etc/default/locale").value_or("")));
    auto memory = ReadMemInfo(root);
    PropertyValue kernelBuild = ReadHostValue(root, "/proc/sys/kernel/version");
    PropertyValue device = RootDevice(root);
    bool multiprocessor = kernelBuild && kernelBuild->find("SMP") != std::string::npos;

    HostObject os;
    os["BootDevice"] = device;
    os["BuildNumber"] = kernelBuild;
    os["BuildType"] = kernelBuild ? PropertyValue(multiprocessor ? "Multiprocessor" : "Uniprocessor") : std::nullopt;
    os["Caption"] = Lookup(release, "PRETTY_NAME") ? Lookup(release, "PRETTY_NAME") : Lookup(release, "NAME");
    os["CountryCode"] = std::nullopt;
    os["CSDVersion"] = std::nullopt;
    os["CSName"] = HostName(root);
    os["Description"] = std::nullopt;
    os["Manufacturer"] = Lookup(release, "NAME");
    os["Locale"] = Lookup(locale, "LANG");
    os["Organization"] = std::nullopt;
    os["OtherTypeDescription"] = std::nullopt;
    os["PlusProductID"] = std::nullopt;
    os["PlusVersionNumber"] = std::nullopt;
    os["RegisteredUser"] = std::nullopt;
    os["SerialNumber"] = ReadHostValue(root, "/etc/machine-id");
    os["SystemDevice"] = device;
    os["SystemDirectory"] = std::nullopt;
    os["SystemDrive"] = "/";
    os["Version"] = ReadHostValue(root, "/proc/sys/kernel/osrelease");
    os["WindowsDirectory"] = std::nullopt;

    os["FreePhysicalMemory"] = Kilobytes(memory, {"MemFree"});
    os["CurrentTimeZone"] = TimeZoneMinutes();
    os["EncryptionLevel"] = std::nullopt;
    os["FreeSpaceInPagingFiles"] = Kilobytes(memory, {"SwapFree"});
    os["FreeVirtualMemory"] = Kilobytes(memory, {"MemAvailable", "SwapFree"});
    os["MaxNumberOfProcesses"] = ReadHostValue(root, "/proc/sys/kernel/pid_max");
    // The user part of the address space, in kilobytes: 128 TiB on 64-bit
    // Linux, 3 GiB on 32-bit.
    os["MaxProcessMemorySize"] = sizeof(void *) == 8 ? "137438953472" : "3145728";
    os["NumberOfLicensedUsers"] = std::nullopt;
    os["NumberOfProcesses"] = std::to_string(CountProcesses(root));
    os["NumberOfUsers"] = CountUsers(root);
    os["OSLanguage"] = std::nullopt;
    os["OSProductSuite"] = std::nullopt;
    os["OSType"] = std::to_string(kCimOsTypeLinux);
    os["ProductType"] = std::nullopt;
    os["QuantumLength"] = std::nullopt;
    os["QuantumType"] = std::nullopt;
    os["ServicePackMajorVersion"] = std::nullopt;
    os["ServicePackMinorVersion"] = std::nullopt;
    os["SizeStoredInPagingFiles"] = Kilobytes(memory, {"SwapTotal"});
    os["TotalSwapSpaceSize"] = Kilobytes(memory, {"SwapTotal"});
    os["TotalVirtualMemorySize"] = Kilobytes(memory, {"MemTotal", "SwapTotal"});
    os["TotalVisibleMemorySize"] = Kilobytes(memory, {"MemTotal"});
    return {os};
}

}  // namespace qor::hostinfo
