#include "qor/host/DmiTable.h"

#include "qor/host/HostObjects.h"

namespace qor::hostinfo {
namespace {

constexpr std::uint8_t kEndOfTable = 127;
constexpr std::size_t kDmiHeaderSize = 4;

}  // namespace

std::optional<std::string> DmiStructure::String(std::size_t offset) const {
    if (offset >= formatted.size()) return std::nullopt;
    std::size_t number = formatted[offset];
    if (number == 0 || number > strings.size()) return std::nullopt;
    std::string text = TrimmedText(strings[number - 1]);
    if (text.empty()) return std::nullopt;
    return text;
}

std::optional<std::uint16_t> DmiStructure::Word(std::size_t offset) const {
    if (offset + 2 > formatted.size()) return std::nullopt;
    return static_cast<std::uint16_t>(formatted[offset] | (formatted[offset + 1] << 8));
}

std::optional<std::uint32_t> DmiStructure::DoubleWord(std::size_t offset) const {
    auto low = Word(offset), high = Word(offset + 2);
    if (!low || !high) return std::nullopt;
    return static_cast<std::uint32_t>(*low) | (static_cast<std::uint32_t>(*high) << 16);
}

std::vector<DmiStructure> ParseDmiTable(std::span<const std::uint8_t> table) {
    std::vector<DmiStructure> structures;
    std::size_t at = 0;
    while (at + kDmiHeaderSize <= table.size()) {
        std::size_t length = table[at + 1];
        if (length < kDmiHeaderSize || at + length > table.size()) break;
        DmiStructure s;
        s.type = table[at];
        s.handle = static_cast<std::uint16_t>(table[at + 2] | (table[at + 3] << 8));
        s.formatted.assign(table.begin() + static_cast<std::ptrdiff_t>(at),
                           table.begin() + static_cast<std::ptrdiff_t>(at + length));
        // The string set follows, each string zero-terminated, the set ending
        // with a second zero (two zeros when there are no strings).
        std::size_t p = at + length;
        bool terminated = false;
        while (p < table.size()) {
            std::size_t end = p;
            while (end < table.size() && table[end] != 0) ++end;
            if (end >= table.size()) break;
            if (end == p) {
                terminated = true;
                p = end + 1;
                break;
            }
            s.strings.emplace_back(reinterpret_cast<const char *>(table.data() + p), end - p);
            p = end + 1;
            if (p < table.size() && table[p] == 0) {
                terminated = true;
                ++p;
                break;
            }
        }
        if (!terminated) break;
        if (s.strings.empty() && p < table.size() && table[p] == 0 && p == at + length + 1) ++p;
        bool last = s.type == kEndOfTable;
        structures.push_back(std::move(s));
        at = p;
        if (last) break;
    }
    return structures;
}

std::uint64_t DmiMemoryDeviceSize(const DmiStructure &device) {
    auto size = device.Word(0x0C);
    if (!size || *size == 0 || *size == 0xFFFF) return 0;
    if (*size == 0x7FFF) {
        auto extended = device.DoubleWord(0x1C);
        return extended ? static_cast<std::uint64_t>(*extended & 0x7FFFFFFF) << 20 : 0;
    }
    // Bit 15 set: the size counts kilobytes, otherwise megabytes.
    if (*size & 0x8000) return static_cast<std::uint64_t>(*size & 0x7FFF) << 10;
    return static_cast<std::uint64_t>(*size) << 20;
}

}  // namespace qor::hostinfo
