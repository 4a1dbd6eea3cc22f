// Win32_DiskDrive: the block devices of /sys/block that sit on hardware
// (loop, RAM, zram, device-mapper and md devices have no device link).
#include <cstdlib>
#include <cstring>

#include "qor/host/HostObjects.h"

namespace qor::hostinfo {
namespace {

struct DiskInterface {
    const char *prefix;
    const char *interfaceType;
};

constexpr DiskInterface kDiskInterfaces[] = {
    {"nvme", "NVMe"}, {"sd", "SCSI"}, {"hd", "IDE"}, {"vd", "VirtIO"},
    {"xvd", "Xen"},   {"mmcblk", "SD"}, {"sr", "SCSI"},
};

PropertyValue DiskInterfaceType(const std::string &root, const std::string &name) {
    // A SCSI disk behind a USB bridge is a USB disk to the user.
    if (PropertyValue target = ReadHostText(root, "/sys/block/" + name + "/device/uevent"))
        if (target->find("usb") != std::string::npos) return std::string("USB");
    for (const DiskInterface &entry : kDiskInterfaces)
        if (name.compare(0, std::strlen(entry.prefix), entry.prefix) == 0)
            return std::string(entry.interfaceType);
    return std::nullopt;
}

}  // namespace

std::vector<HostObject> ReadDiskDrives(const std::string &root) {
    std::vector<HostObject> disks;
    PropertyValue host = HostName(root);
    for (const std::string &name : ListHostFolder(root, "/sys/block")) {
        std::string base = "/sys/block/" + name;
        if (!HostPathExists(root, base + "/device")) continue;
        HostObject disk;
        bool removable = ReadHostValue(root, base + "/removable") == "1";
        disk["Name"] = "/dev/" + name;
        disk["Description"] = "Disk drive";
        disk["Manufacturer"] = ReadHostValue(root, base + "/device/vendor");
        disk["DeviceID"] = "/dev/" + name;
        disk["MediaType"] = removable ? "Removable Media" : "Fixed hard disk media";
        disk["Model"] = ReadHostValue(root, base + "/device/model");
        disk["SystemName"] = host;
        disk["InterfaceType"] = DiskInterfaceType(root, name);
        PropertyValue sectors = ReadHostValue(root, base + "/size");
        // The kernel counts 512-byte sectors whatever the disk's own sector size.
        disk["Size"] = sectors ? PropertyValue(std::to_string(std::strtoull(sectors->c_str(), nullptr, 10) * 512))
                               : std::nullopt;
        disks.push_back(std::move(disk));
    }
    return disks;
}

}  // namespace qor::hostinfo
