// Win32_Processor: one object per physical package, from /proc/cpuinfo and
// the cpufreq folders of sysfs.
#include <sys/utsname.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "qor/host/HostObjects.h"

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#endif

namespace qor::hostinfo {
namespace {

using CpuInfoBlock = std::map<std::string, std::string>;

std::vector<CpuInfoBlock> ParseCpuInfo(const std::string &text) {
    std::vector<CpuInfoBlock> blocks(1);
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        std::size_t colon = line.find(':');
        if (TrimmedText(line).empty()) {
            if (!blocks.back().empty()) blocks.emplace_back();
            continue;
        }
        if (colon == std::string::npos) continue;
        blocks.back()[TrimmedText(line.substr(0, colon))] = TrimmedText(line.substr(colon + 1));
    }
    if (blocks.back().empty()) blocks.pop_back();
    return blocks;
}

PropertyValue FirstOf(const CpuInfoBlock &block, std::initializer_list<const char *> keys) {
    for (const char *key : keys)
        if (auto it = block.find(key); it != block.end() && !it->second.empty()) return it->second;
    return std::nullopt;
}

// Windows names the architecture in its descriptions by vendor.
std::string ArchitectureName(const PropertyValue &vendor) {
    utsname name{};
    std::string machine = ::uname(&name) == 0 ? name.machine : "";
    if (machine == "x86_64" && vendor == "AuthenticAMD") return "AMD64";
    if (machine == "x86_64" && vendor == "GenuineIntel") return "Intel64";
    return machine;
}

// The identifier Windows shows: the feature flags and signature of CPUID 1.
PropertyValue ProcessorIdentifier() {
#if defined(__x86_64__) || defined(__i386__)
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (__get_cpuid(1, &eax, &ebx, &ecx, &edx)) {
        char text[17];
        std::snprintf(text, sizeof text, "%08X%08X", edx, eax);
        return std::string(text);
    }
#endif
    return std::nullopt;
}

}  // namespace

std::vector<HostObject> ReadProcessors(const std::string &root) {
    std::vector<HostObject> processors;
    PropertyValue text = ReadHostText(root, "/proc/cpuinfo");
    if (!text) return processors;
    // One package per physical id, described by its first logical processor.
    std::map<long, std::pair<CpuInfoBlock, long>> packages;  // id -> block, first cpu number
    long ordinal = 0;
    for (const CpuInfoBlock &block : ParseCpuInfo(*text)) {
        if (block.find("processor") == block.end()) continue;
        long package = 0;
        if (auto it = block.find("physical id"); it != block.end()) package = std::atol(it->second.c_str());
        long cpu = ordinal++;
        if (auto it = block.find("processor"); it != block.end()) cpu = std::atol(it->second.c_str());
        packages.emplace(package, std::make_pair(block, cpu));
    }
    long index = 0;
    for (const auto &[package, entry] : packages) {
        const CpuInfoBlock &block = entry.first;
        HostObject cpu;
        PropertyValue vendor = FirstOf(block, {"vendor_id", "CPU implementer"});
        PropertyValue family = FirstOf(block, {"cpu family"});
        PropertyValue model = FirstOf(block, {"model"});
        PropertyValue stepping = FirstOf(block, {"stepping"});
        PropertyValue description;
        if (family && model && stepping)
            description = ArchitectureName(vendor) + " Family " + *family + " Model " + *model +
                          " Stepping " + *stepping;
        else
            description = ArchitectureName(vendor);
        cpu["Name"] = FirstOf(block, {"model name", "Processor", "cpu model", "cpu", "uarch"});
        cpu["Description"] = description;
        cpu["Manufacturer"] = vendor;
        cpu["DeviceID"] = "CPU" + std::to_string(index++);
        cpu["ProcessorID"] = root.empty() ? ProcessorIdentifier() : std::nullopt;
        cpu["Version"] = model && stepping ? PropertyValue("Model " + *model + ", Stepping " + *stepping)
                                           : std::nullopt;
        cpu["Caption"] = description;
        std::string base = "/sys/devices/system/cpu/cpu" + std::to_string(entry.second) + "/cpufreq/";
        PropertyValue speed;
        if (PropertyValue khz = ReadHostValue(root, base + "cpuinfo_max_freq"))
            speed = std::to_string(std::atoll(khz->c_str()) / 1000);
        else if (PropertyValue mhz = FirstOf(block, {"cpu MHz"}))
            speed = std::to_string(std::llround(std::atof(mhz->c_str())));
        cpu["MaxClockSpeed"] = speed;
        processors.push_back(std::move(cpu));
    }
    return processors;
}

}  // namespace qor::hostinfo
