#include "PeBuilder.h"

#include <cstring>

namespace qor::test {
namespace {

class ByteWriter {
public:
    std::vector<std::uint8_t> bytes;

    void U8(std::uint8_t v) { bytes.push_back(v); }
    void U16(std::uint16_t v) {
        U8(static_cast<std::uint8_t>(v));
        U8(static_cast<std::uint8_t>(v >> 8));
    }
    void U32(std::uint32_t v) {
        U16(static_cast<std::uint16_t>(v));
        U16(static_cast<std::uint16_t>(v >> 16));
    }
    void Append(const std::vector<std::uint8_t> &more) { bytes.insert(bytes.end(), more.begin(), more.end()); }
    void Align(std::size_t to) {
        while (bytes.size() % to) U8(0);
    }
    void PadTo(std::size_t size) {
        while (bytes.size() < size) U8(0);
    }
    void PutU16(std::size_t at, std::uint16_t v) {
        bytes[at] = static_cast<std::uint8_t>(v);
        bytes[at + 1] = static_cast<std::uint8_t>(v >> 8);
    }
    void PutU32(std::size_t at, std::uint32_t v) {
        PutU16(at, static_cast<std::uint16_t>(v));
        PutU16(at + 2, static_cast<std::uint16_t>(v >> 16));
    }
};

// ASCII test texts only, so UTF-16 is a zero byte after each character.
std::vector<std::uint8_t> Utf16(const std::string &text, bool terminate = true) {
    std::vector<std::uint8_t> out;
    for (char c : text) {
        out.push_back(static_cast<std::uint8_t>(c));
        out.push_back(0);
    }
    if (terminate) out.insert(out.end(), {0, 0});
    return out;
}

// One block: header, key, value, children, each part 32-bit aligned.
std::vector<std::uint8_t> Block(const std::string &key, std::uint16_t type,
                                const std::vector<std::uint8_t> &value, std::uint16_t valueLength,
                                const std::vector<std::vector<std::uint8_t>> &children) {
    ByteWriter w;
    w.U16(0);
    w.U16(valueLength);
    w.U16(type);
    w.Append(Utf16(key));
    w.Align(4);
    w.Append(value);
    for (const auto &child : children) {
        w.Align(4);
        w.Append(child);
    }
    w.PutU16(0, static_cast<std::uint16_t>(w.bytes.size()));
    return w.bytes;
}

}  // namespace

std::vector<std::uint8_t> BuildVersionResource(const VersionResourceLayout &layout) {
    std::vector<std::vector<std::uint8_t>> sections;
    if (!layout.tables.empty()) {
        std::vector<std::vector<std::uint8_t>> tables;
        for (const StringTableLayout &table : layout.tables) {
            std::vector<std::vector<std::uint8_t>> strings;
            for (const auto &[key, value] : table.values)
                strings.push_back(Block(key, 1, Utf16(value), static_cast<std::uint16_t>(value.size() + 1), {}));
            tables.push_back(Block(table.key, 1, {}, 0, strings));
        }
        sections.push_back(Block("StringFileInfo", 1, {}, 0, tables));
    }
    if (layout.withTranslations) {
        ByteWriter pairs;
        for (auto [language, codePage] : layout.translations) {
            pairs.U16(language);
            pairs.U16(codePage);
        }
        auto var = Block("Translation", 0, pairs.bytes, static_cast<std::uint16_t>(pairs.bytes.size()), {});
        sections.push_back(Block("VarFileInfo", 1, {}, 0, {var}));
    }
    std::vector<std::uint8_t> fixed;
    if (layout.withFixedInfo) {
        tagVS_FIXEDFILEINFO info = layout.fixed;
        info.dwSignature = 0xFEEF04BD;
        if (info.dwStrucVersion == 0) info.dwStrucVersion = 0x00010000;
        ByteWriter w;
        const DWORD *words = reinterpret_cast<const DWORD *>(&info);
        for (int i = 0; i < 13; ++i) w.U32(words[i]);
        fixed = w.bytes;
    }
    return Block("VS_VERSION_INFO", 0, fixed, static_cast<std::uint16_t>(fixed.size()), sections);
}

std::vector<std::uint8_t> BuildPeImage(const std::vector<std::uint8_t> &resource, const PeImageOptions &options) {
    return BuildPeImage(LanguageResources{{0x0409, resource}}, options);
}

std::vector<std::uint8_t> BuildPeImage(const LanguageResources &resources, const PeImageOptions &options) {
    constexpr std::uint32_t kFileAlignment = 0x200;
    constexpr std::uint32_t kSectionRva = 0x1000;

    // The resource section: type, name and language directories, the data
    // entries, then the data.
    ByteWriter rsrc;
    auto directory = [&](std::vector<std::pair<std::uint32_t, std::uint32_t>> entries) {
        rsrc.U32(0);  // characteristics
        rsrc.U32(0);  // time stamp
        rsrc.U16(0);  // major version
        rsrc.U16(0);  // minor version
        rsrc.U16(0);  // named entries
        rsrc.U16(static_cast<std::uint16_t>(entries.size()));
        for (auto [id, offset] : entries) {
            rsrc.U32(id);
            rsrc.U32(offset);
        }
    };
    const std::uint32_t typeDirSize = 16 + 8 * (options.iconTypeFirst ? 2 : 1);
    const std::uint32_t nameDir = typeDirSize;
    const std::uint32_t languageDir = nameDir + 24;
    const std::uint32_t dataEntries = languageDir + 16 + 8 * static_cast<std::uint32_t>(resources.size());
    const std::uint32_t data = dataEntries + 16 * static_cast<std::uint32_t>(resources.size());
    std::vector<std::pair<std::uint32_t, std::uint32_t>> types;
    // The icon type points at the same name directory; the reader must pick
    // RT_VERSION by its id, not by position.
    if (options.iconTypeFirst) types.push_back({3, 0x80000000u | nameDir});
    types.push_back({16, 0x80000000u | nameDir});
    directory(types);
    directory({{1, 0x80000000u | languageDir}});
    std::vector<std::pair<std::uint32_t, std::uint32_t>> languages;
    for (std::size_t i = 0; i < resources.size(); ++i)
        languages.push_back({resources[i].first, dataEntries + 16 * static_cast<std::uint32_t>(i)});
    directory(languages);
    std::uint32_t at = data;
    for (const auto &[language, resource] : resources) {
        rsrc.U32(kSectionRva + at);
        rsrc.U32(static_cast<std::uint32_t>(resource.size()));
        rsrc.U32(0);
        rsrc.U32(0);
        at += static_cast<std::uint32_t>((resource.size() + 3) & ~std::size_t(3));
    }
    for (const auto &[language, resource] : resources) {
        rsrc.Append(resource);
        rsrc.Align(4);
    }
    const std::uint32_t rsrcSize = static_cast<std::uint32_t>(rsrc.bytes.size());
    rsrc.Align(kFileAlignment);

    ByteWriter pe;
    pe.U16(0x5A4D);  // "MZ"
    pe.PadTo(0x3C);
    pe.U32(0x40);    // e_lfanew
    pe.PadTo(0x40);
    pe.Append({'P', 'E', 0, 0});
    const std::uint16_t optionalSize = options.pe32Plus ? 240 : 224;
    pe.U16(options.pe32Plus ? 0x8664 : 0x014C);
    pe.U16(1);       // sections
    pe.U32(0);       // time stamp
    pe.U32(0);
    pe.U32(0);
    pe.U16(optionalSize);
    pe.U16(0x0102);  // executable image
    const std::size_t optional = pe.bytes.size();
    pe.U16(options.pe32Plus ? 0x20B : 0x10B);
    pe.PadTo(optional + optionalSize);
    pe.PutU32(optional + 32, 0x1000);          // section alignment
    pe.PutU32(optional + 36, kFileAlignment);  // file alignment
    pe.PutU32(optional + 56, kSectionRva + 0x1000 * ((rsrcSize + 0xFFF) / 0x1000));  // image size
    pe.PutU32(optional + 60, kFileAlignment);  // header size
    const std::size_t directories = optional + (options.pe32Plus ? 112 : 96);
    pe.PutU32(directories - 4, 16);            // number of data directories
    pe.PutU32(directories + 2 * 8, kSectionRva);
    pe.PutU32(directories + 2 * 8 + 4, rsrcSize);
    // The section header.
    pe.Append({'.', 'r', 's', 'r', 'c', 0, 0, 0});
    pe.U32(rsrcSize);
    pe.U32(kSectionRva);
    pe.U32(static_cast<std::uint32_t>(rsrc.bytes.size()));
    pe.U32(kFileAlignment);
    pe.U32(0);
    pe.U32(0);
    pe.U16(0);
    pe.U16(0);
    pe.U32(0x40000040);  // initialised data, readable
    pe.PadTo(kFileAlignment);
    pe.Append(rsrc.bytes);
    return pe.bytes;
}

VersionResourceLayout TypicalVersionLayout() {
    VersionResourceLayout layout;
    layout.fixed.dwFileVersionMS = 0x00010002;
    layout.fixed.dwFileVersionLS = 0x00030004;
    layout.fixed.dwProductVersionMS = 0x00050006;
    layout.fixed.dwProductVersionLS = 0x00070008;
    layout.fixed.dwFileFlagsMask = 0x3F;
    layout.fixed.dwFileFlags = 0x1;       // debug
    layout.fixed.dwFileOS = 0x40004;      // NT, Win32
    layout.fixed.dwFileType = 0x2;        // DLL
    layout.fixed.dwFileSubtype = 0;
    layout.fixed.dwFileDateMS = 0x01D2;
    layout.fixed.dwFileDateLS = 0x12345678;
    layout.tables = {{"040904b0",
                    {{"CompanyName", "Example Instruments Ltd"},
                     {"FileDescription", "Plate handler driver"},
                     {"FileVersion", "1, 2, 3, 4"},
                     {"InternalName", "platehandler"},
                     {"LegalCopyright", "(c) the makers"},
                     {"OriginalFilename", "platehandler.dll"},
                     {"ProductName", "Scheduler"},
                     {"ProductVersion", "5, 6, 7, 8"}}}};
    layout.translations = {{0x0409, 0x04B0}};
    return layout;
}

}  // namespace qor::test
