// Win32_PhysicalMemory: the memory devices (SMBIOS type 17) of the DMI table.
// The table is readable by root only on most systems; without it the host
// exposes no modules and the list is empty.
#include "qor/host/DmiTable.h"
#include "qor/host/HostObjects.h"

namespace qor::hostinfo {
namespace {

constexpr std::uint8_t kDmiMemoryDevice = 17;
// Offsets of the memory device's string numbers.
constexpr std::size_t kDmiMemoryManufacturer = 0x17;
constexpr std::size_t kDmiMemorySerialNumber = 0x18;
constexpr std::size_t kDmiMemoryPartNumber = 0x1A;

}  // namespace

std::vector<HostObject> ReadMemoryModules(const std::string &root) {
    std::vector<HostObject> modules;
    PropertyValue table = ReadHostText(root, "/sys/firmware/dmi/tables/DMI");
    if (!table) return modules;
    auto bytes = std::span(reinterpret_cast<const std::uint8_t *>(table->data()), table->size());
    for (const DmiStructure &device : ParseDmiTable(bytes)) {
        if (device.type != kDmiMemoryDevice) continue;
        std::uint64_t size = DmiMemoryDeviceSize(device);
        if (size == 0) continue;  // an empty slot
        HostObject module;
        module["Name"] = "Physical Memory";
        module["Description"] = "Physical Memory";
        module["Manufacturer"] = device.String(kDmiMemoryManufacturer);
        module["SerialNumber"] = device.String(kDmiMemorySerialNumber);
        module["Version"] = std::nullopt;
        module["Model"] = device.String(kDmiMemoryPartNumber);
        module["Capacity"] = std::to_string(size);
        modules.push_back(std::move(module));
    }
    return modules;
}

}  // namespace qor::hostinfo
