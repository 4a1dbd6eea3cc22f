#include "qor/host/PeResource.h"

#include <cstring>

#include "qor/host/ResourceLanguage.h"

namespace qor {
namespace {

constexpr std::uint32_t kResourceDirectoryIndex = 2;
constexpr std::uint16_t kRtVersion = 16;
constexpr std::size_t kSectionHeaderSize = 40;
constexpr std::size_t kResourceDirectoryHeaderSize = 16;

// Little-endian reads that fail instead of running past the end.
class PeReader {
public:
    explicit PeReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool Has(std::size_t offset, std::size_t size) const {
        return offset <= bytes_.size() && size <= bytes_.size() - offset;
    }
    std::optional<std::uint16_t> U16(std::size_t offset) const {
        if (!Has(offset, 2)) return std::nullopt;
        return static_cast<std::uint16_t>(bytes_[offset] | (bytes_[offset + 1] << 8));
    }
    std::optional<std::uint32_t> U32(std::size_t offset) const {
        if (!Has(offset, 4)) return std::nullopt;
        return static_cast<std::uint32_t>(bytes_[offset]) |
               (static_cast<std::uint32_t>(bytes_[offset + 1]) << 8) |
               (static_cast<std::uint32_t>(bytes_[offset + 2]) << 16) |
               (static_cast<std::uint32_t>(bytes_[offset + 3]) << 24);
    }
    std::span<const std::uint8_t> Bytes(std::size_t offset, std::size_t size) const {
        return bytes_.subspan(offset, size);
    }

private:
    std::span<const std::uint8_t> bytes_;
};

struct PeSection {
    std::uint32_t virtualAddress;
    std::uint32_t virtualSize;
    std::uint32_t rawOffset;
    std::uint32_t rawSize;
};

// Maps a relative virtual address to a file offset through the section table.
// `size` bytes from there must lie inside the section's raw data.
std::optional<std::size_t> RvaToOffset(const std::vector<PeSection> &sections, std::uint32_t rva,
                                       std::uint32_t size) {
    for (const PeSection &s : sections) {
        std::uint64_t span = std::max(s.virtualSize, s.rawSize);
        if (rva < s.virtualAddress || rva - std::uint64_t(s.virtualAddress) >= span) continue;
        std::uint64_t delta = rva - s.virtualAddress;
        if (delta + size > s.rawSize) return std::nullopt;
        return static_cast<std::size_t>(s.rawOffset + delta);
    }
    return std::nullopt;
}

// The offset-to-data field (high bit: a subdirectory) of the directory's
// entry with the first of the `wanted` ids that it holds; failing that, of its
// first entry when `orFirst`.
std::optional<std::uint32_t> DirectoryEntry(const PeReader &pe, std::size_t directory, std::size_t resourceSize,
                                            std::span<const std::uint16_t> wanted, bool orFirst) {
    if (!pe.Has(directory, kResourceDirectoryHeaderSize)) return std::nullopt;
    const std::uint32_t count = std::uint32_t(*pe.U16(directory + 12)) + *pe.U16(directory + 14);
    const std::size_t entries = directory + kResourceDirectoryHeaderSize;
    if (!pe.Has(entries, std::size_t(count) * 8)) return std::nullopt;
    auto pick = [&](std::uint32_t index) -> std::optional<std::uint32_t> {
        const std::uint32_t data = *pe.U32(entries + index * 8 + 4);
        if ((data & 0x7FFFFFFFu) >= resourceSize) return std::nullopt;
        return data;
    };
    for (std::uint16_t id : wanted) {
        for (std::uint32_t i = 0; i < count; ++i) {
            // A named entry never matches a numeric id.
            if (*pe.U32(entries + i * 8) == id) return pick(i);
        }
    }
    if (orFirst && count > 0) return pick(0);
    return std::nullopt;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> FindVersionResource(std::span<const std::uint8_t> image) {
    return FindVersionResource(image, ResourceLanguageOrder(UserLanguageId()));
}

std::optional<std::vector<std::uint8_t>> FindVersionResource(std::span<const std::uint8_t> image,
                                                             std::span<const std::uint16_t> languages) {
    PeReader pe(image);
    if (!pe.Has(0, 0x40) || image[0] != 'M' || image[1] != 'Z') return std::nullopt;
    std::size_t peHeader = *pe.U32(0x3C);
    if (!pe.Has(peHeader, 24) || std::memcmp(image.data() + peHeader, "PE\0\0", 4) != 0)
        return std::nullopt;
    std::size_t coff = peHeader + 4;
    std::uint32_t sectionCount = *pe.U16(coff + 2);
    std::uint32_t optionalSize = *pe.U16(coff + 16);
    std::size_t optional = coff + 20;
    auto magic = pe.U16(optional);
    if (!magic) return std::nullopt;
    // The data directories follow the fixed fields, whose length depends on
    // whether the image is 32- or 64-bit.
    std::size_t directoriesAt;
    if (*magic == 0x10B) directoriesAt = 96;
    else if (*magic == 0x20B) directoriesAt = 112;
    else return std::nullopt;
    auto directoryCount = pe.U32(optional + directoriesAt - 4);
    if (!directoryCount || *directoryCount <= kResourceDirectoryIndex) return std::nullopt;
    std::size_t resourceEntry = directoriesAt + kResourceDirectoryIndex * 8;
    if (resourceEntry + 8 > optionalSize) return std::nullopt;
    auto resourceRva = pe.U32(optional + resourceEntry);
    auto resourceSize = pe.U32(optional + resourceEntry + 4);
    if (!resourceRva || !resourceSize || *resourceRva == 0 || *resourceSize == 0)
        return std::nullopt;

    std::vector<PeSection> sections;
    std::size_t table = optional + optionalSize;
    for (std::uint32_t i = 0; i < sectionCount; ++i) {
        std::size_t at = table + i * kSectionHeaderSize;
        if (!pe.Has(at, kSectionHeaderSize)) return std::nullopt;
        PeSection s{*pe.U32(at + 12), *pe.U32(at + 8), *pe.U32(at + 20), *pe.U32(at + 16)};
        // Raw data that runs past the end of the file is cut to what is there.
        if (s.rawOffset > image.size()) continue;
        s.rawSize = static_cast<std::uint32_t>(
            std::min<std::uint64_t>(s.rawSize, image.size() - s.rawOffset));
        sections.push_back(s);
    }

    // The resource tree is read inside its section only, however large its
    // directory entry claims it to be.
    std::uint32_t treeSize = 0;
    std::optional<std::size_t> tree;
    for (const PeSection &s : sections) {
        std::uint64_t span = std::max(s.virtualSize, s.rawSize);
        if (*resourceRva < s.virtualAddress || *resourceRva - std::uint64_t(s.virtualAddress) >= span)
            continue;
        std::uint32_t delta = *resourceRva - s.virtualAddress;
        if (delta >= s.rawSize) return std::nullopt;
        treeSize = std::min(*resourceSize, s.rawSize - delta);
        tree = s.rawOffset + delta;
        break;
    }
    if (!tree) return std::nullopt;

    // Three levels: the type RT_VERSION, the first name, and the language by
    // the order of preference, else the first. Each must be a subdirectory
    // but the last, which points at the data entry.
    const std::uint16_t version[] = {kRtVersion};
    const std::span<const std::uint16_t> wanted[3] = {version, {}, languages};
    std::size_t directory = *tree;
    std::uint32_t leaf = 0;
    for (int level = 0; level < 3; ++level) {
        auto entry = DirectoryEntry(pe, directory, treeSize, wanted[level], level > 0);
        if (!entry) return std::nullopt;
        bool subdirectory = (*entry & 0x80000000u) != 0;
        if (subdirectory != (level < 2)) return std::nullopt;
        directory = *tree + (*entry & 0x7FFFFFFFu);
        leaf = *entry;
    }
    std::size_t dataEntry = *tree + leaf;
    if (!pe.Has(dataEntry, 16) || leaf + 16 > treeSize) return std::nullopt;
    std::uint32_t dataRva = *pe.U32(dataEntry);
    std::uint32_t dataSize = *pe.U32(dataEntry + 4);
    if (dataSize == 0) return std::nullopt;
    auto data = RvaToOffset(sections, dataRva, dataSize);
    if (!data) return std::nullopt;
    auto bytes = pe.Bytes(*data, dataSize);
    return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

}  // namespace qor
