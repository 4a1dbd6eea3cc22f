#include "qor/host/HostObjects.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace qor::hostinfo {
namespace {

struct HostClassProvider {
    const char *className;
    std::vector<HostObject> (*read)(const std::string &root);
};

constexpr HostClassProvider kHostClassProviders[] = {
    {"Win32_Processor", &ReadProcessors},
    {"Win32_PhysicalMemory", &ReadMemoryModules},
    {"Win32_DiskDrive", &ReadDiskDrives},
    {"Win32_BIOS", &ReadBios},
    {"Win32_MotherboardDevice", &ReadMotherboard},
    {"Win32_NetworkAdapter", &ReadNetworkAdapters},
    {"Win32_VideoController", &ReadVideoControllers},
    {"Win32_OperatingSystem", &ReadOperatingSystem},
};

// Sysfs files are small; anything longer is not a value.
constexpr std::size_t kMaxHostText = 1 << 20;

}  // namespace

std::optional<std::vector<HostObject>> QueryHostClass(const std::string &className,
                                                      const std::string &root) {
    for (const HostClassProvider &provider : kHostClassProviders)
        if (className == provider.className) return provider.read(root);
    return std::nullopt;
}

std::string TrimmedText(const std::string &text) {
    const char *blanks = " \t\r\n";
    std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

PropertyValue ReadHostText(const std::string &root, const std::string &path) {
    std::ifstream file(root + path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string text;
    char chunk[4096];
    while (text.size() < kMaxHostText && file.read(chunk, sizeof chunk).gcount() > 0)
        text.append(chunk, static_cast<std::size_t>(file.gcount()));
    if (file.bad()) return std::nullopt;
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ' || text.back() == '\0' ||
                             text.back() == '\r' || text.back() == '\t'))
        text.pop_back();
    return text;
}

PropertyValue ReadHostValue(const std::string &root, const std::string &path) {
    PropertyValue text = ReadHostText(root, path);
    if (text) *text = TrimmedText(*text);
    if (text && text->empty()) return std::nullopt;
    return text;
}

std::vector<std::string> ListHostFolder(const std::string &root, const std::string &path) {
    std::vector<std::string> names;
    DIR *dir = ::opendir((root + path).c_str());
    if (dir == nullptr) return names;
    while (dirent *entry = ::readdir(dir)) {
        std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(name);
    }
    ::closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

bool HostPathExists(const std::string &root, const std::string &path) {
    struct stat info {};
    return ::stat((root + path).c_str(), &info) == 0;
}

PropertyValue HostLinkName(const std::string &root, const std::string &path) {
    char target[4096];
    ssize_t length = ::readlink((root + path).c_str(), target, sizeof target - 1);
    if (length <= 0) return std::nullopt;
    std::string text(target, static_cast<std::size_t>(length));
    std::size_t slash = text.find_last_of('/');
    text = slash == std::string::npos ? text : text.substr(slash + 1);
    if (text.empty()) return std::nullopt;
    return text;
}

PropertyValue HostName(const std::string &root) {
    return ReadHostValue(root, "/proc/sys/kernel/hostname");
}

}  // namespace qor::hostinfo
