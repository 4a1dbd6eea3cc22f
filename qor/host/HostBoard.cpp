// Win32_BIOS and Win32_MotherboardDevice, from the DMI identification folder.
#include "qor/host/HostObjects.h"

namespace qor::hostinfo {
namespace {

constexpr char kDmiId[] = "/sys/class/dmi/id/";

PropertyValue DmiId(const std::string &root, const char *name) {
    return ReadHostValue(root, std::string(kDmiId) + name);
}

PropertyValue Joined(const PropertyValue &a, const char *separator, const PropertyValue &b) {
    if (a && b) return *a + separator + *b;
    return a ? a : b;
}

}  // namespace

std::vector<HostObject> ReadBios(const std::string &root) {
    if (!HostPathExists(root, kDmiId)) return {};
    PropertyValue version = DmiId(root, "bios_version");
    PropertyValue vendor = DmiId(root, "bios_vendor");
    PropertyValue release = DmiId(root, "bios_release");
    HostObject bios;
    bios["Name"] = version;
    bios["Description"] = version;
    bios["Manufacturer"] = vendor;
    bios["Caption"] = version;
    bios["BuildNumber"] = std::nullopt;
    bios["CurrentLanguage"] = std::nullopt;
    bios["IdentificationCode"] = std::nullopt;
    bios["SMBIOSBIOSVersion"] = version;
    // Windows shows the maker and the revision, "VENDOR - 1072009".
    bios["Version"] = Joined(vendor, " - ", release ? release : DmiId(root, "bios_date"));
    return {bios};
}

std::vector<HostObject> ReadMotherboard(const std::string &root) {
    PropertyValue vendor = DmiId(root, "board_vendor");
    PropertyValue name = DmiId(root, "board_name");
    HostObject board;
    board["Name"] = name ? name : PropertyValue("Motherboard");
    board["Description"] = Joined(vendor, " ", name);
    board["Caption"] = Joined(vendor, " ", name);
    board["DeviceID"] = "Motherboard";
    board["PrimaryBusType"] =
        ListHostFolder(root, "/sys/bus/pci/devices").empty() ? std::nullopt : PropertyValue("PCI");
    board["RevisionNumber"] = DmiId(root, "board_version");
    board["SecondaryBusType"] =
        ListHostFolder(root, "/sys/bus/usb/devices").empty() ? std::nullopt : PropertyValue("USB");
    board["SystemName"] = HostName(root);
    return {board};
}

}  // namespace qor::hostinfo
