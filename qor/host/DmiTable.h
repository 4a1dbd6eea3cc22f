// The SMBIOS structure table (as /sys/firmware/dmi/tables/DMI holds it),
// split into structures with their formatted bytes and strings. Every read is
// bounded by the table: damaged tables give fewer structures, never a fault.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qor::hostinfo {

struct DmiStructure {
    std::uint8_t type = 0;
    std::uint16_t handle = 0;
    std::vector<std::uint8_t> formatted;  // the whole formatted area, header included
    std::vector<std::string> strings;     // string 1 is strings[0]

    // The string whose number stands at `offset`; null when absent or empty.
    std::optional<std::string> String(std::size_t offset) const;
    std::optional<std::uint16_t> Word(std::size_t offset) const;
    std::optional<std::uint32_t> DoubleWord(std::size_t offset) const;
};

std::vector<DmiStructure> ParseDmiTable(std::span<const std::uint8_t> table);

// The size of a memory device (type 17) in bytes; 0 for an empty slot or an
// unknown size.
std::uint64_t DmiMemoryDeviceSize(const DmiStructure &device);

}  // namespace qor::hostinfo
