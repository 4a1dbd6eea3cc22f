// Win32_VideoController: the display controllers, by DRM card or, without
// DRM, by PCI class 0x03; resolution and depth from the first connected
// connector and the first frame buffer.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "qor/host/HostObjects.h"

namespace qor::hostinfo {
namespace {

struct PciVendorName {
    unsigned id;
    const char *name;
};

// The makers one meets in display controllers; others show their number.
constexpr PciVendorName kPciVendorNames[] = {
    {0x1002, "Advanced Micro Devices, Inc."}, {0x10DE, "NVIDIA"}, {0x8086, "Intel Corporation"},
    {0x1234, "QEMU"}, {0x15AD, "VMware"}, {0x1AF4, "Red Hat, Inc."}, {0x80EE, "InnoTek"},
    {0x1A03, "ASPEED Technology, Inc."}, {0x102B, "Matrox Electronics Systems Ltd."},
    {0x1414, "Microsoft Corporation"}, {0x5143, "Qualcomm"}, {0x13B5, "ARM"},
};

// The PCI device folders (below /sys/bus/pci/devices) of display controllers.
std::vector<std::string> DisplayDevices(const std::string &root) {
    std::vector<std::string> devices;
    for (const std::string &card : ListHostFolder(root, "/sys/class/drm")) {
        if (card.compare(0, 4, "card") != 0 || card.find('-') != std::string::npos) continue;
        if (PropertyValue pci = HostLinkName(root, "/sys/class/drm/" + card + "/device"))
            if (std::find(devices.begin(), devices.end(), *pci) == devices.end()) devices.push_back(*pci);
    }
    if (!devices.empty()) return devices;
    for (const std::string &device : ListHostFolder(root, "/sys/bus/pci/devices")) {
        PropertyValue cls = ReadHostValue(root, "/sys/bus/pci/devices/" + device + "/class");
        if (cls && cls->compare(0, 4, "0x03") == 0) devices.push_back(device);
    }
    return devices;
}

// "1920x1080" of the first connected DRM connector.
std::pair<long long, long long> CurrentResolution(const std::string &root) {
    for (const std::string &connector : ListHostFolder(root, "/sys/class/drm")) {
        if (connector.find('-') == std::string::npos) continue;
        std::string base = "/sys/class/drm/" + connector;
        if (ReadHostValue(root, base + "/status") != "connected") continue;
        PropertyValue modes = ReadHostValue(root, base + "/modes");
        long long width = 0, height = 0;
        if (modes && std::sscanf(modes->c_str(), "%lldx%lld", &width, &height) == 2)
            return {width, height};
    }
    if (PropertyValue size = ReadHostValue(root, "/sys/class/graphics/fb0/virtual_size")) {
        long long width = 0, height = 0;
        if (std::sscanf(size->c_str(), "%lld,%lld", &width, &height) == 2) return {width, height};
    }
    return {0, 0};
}

PropertyValue PositiveNumberText(long long value) {
    return value > 0 ? PropertyValue(std::to_string(value)) : std::nullopt;
}

}  // namespace

std::vector<HostObject> ReadVideoControllers(const std::string &root) {
    std::vector<HostObject> controllers;
    PropertyValue host = HostName(root);
    auto [width, height] = CurrentResolution(root);
    long long bits = 0;
    if (PropertyValue depth = ReadHostValue(root, "/sys/class/graphics/fb0/bits_per_pixel"))
        bits = std::atoll(depth->c_str());
    int ordinal = 0;
    for (const std::string &device : DisplayDevices(root)) {
        std::string base = "/sys/bus/pci/devices/" + device;
        unsigned vendor = 0, product = 0;
        if (PropertyValue v = ReadHostValue(root, base + "/vendor")) vendor = std::strtoul(v->c_str(), nullptr, 16);
        if (PropertyValue d = ReadHostValue(root, base + "/device")) product = std::strtoul(d->c_str(), nullptr, 16);
        PropertyValue maker;
        for (const PciVendorName &entry : kPciVendorNames)
            if (entry.id == vendor) maker = entry.name;
        char id[32];
        std::snprintf(id, sizeof id, "%04X:%04X", vendor, product);
        std::string name = (maker ? *maker : std::string("PCI")) + " display controller " + id;
        PropertyValue driver = HostLinkName(root, base + "/driver");
        PropertyValue cls = ReadHostValue(root, base + "/class");

        HostObject video;
        video["Name"] = name;
        video["AdapterCompatibility"] = maker;
        video["AdapterDACType"] = std::nullopt;
        video["Caption"] = name;
        video["Description"] = name;
        video["DeviceID"] = "VideoController" + std::to_string(++ordinal);
        video["DriverVersion"] = driver ? ReadHostValue(root, "/sys/module/" + *driver + "/version") : std::nullopt;
        video["InstalledDisplayDrivers"] = driver;
        video["SystemName"] = host;
        video["VideoModeDescription"] =
            width > 0 ? PropertyValue(std::to_string(width) + " x " + std::to_string(height) +
                                      (bits > 0 && bits < 63 ? " x " + std::to_string(1ULL << bits) + " colors" : ""))
                      : std::nullopt;
        video["VideoProcessor"] = std::nullopt;
        video["CurrentNumberOfColors"] = bits > 0 && bits < 63 ? PropertyValue(std::to_string(1ULL << bits)) : std::nullopt;
        video["CurrentBitsPerPixel"] = PositiveNumberText(bits);
        video["CurrentHorizontalResolution"] = PositiveNumberText(width);
        video["CurrentRefreshRate"] = std::nullopt;
        video["CurrentScanMode"] = std::nullopt;
        video["CurrentVerticalResolution"] = PositiveNumberText(height);
        video["MaxRefreshRate"] = std::nullopt;
        video["MinRefreshRate"] = std::nullopt;
        video["NumberOfColorPlanes"] = std::nullopt;
        // WMI's VideoArchitecture: 5 for a VGA controller (class 0x0300), 2 for others.
        video["VideoArchitecture"] = cls ? PropertyValue(cls->compare(0, 6, "0x0300") == 0 ? "5" : "2") : std::nullopt;
        video["VideoMemoryType"] = std::nullopt;
        video["VideoMode"] = std::nullopt;
        controllers.push_back(std::move(video));
    }
    return controllers;
}

}  // namespace qor::hostinfo
