// qor host / crc / version: the host's inventory and adapters, CRC-32s of
// files, and the version resource of Windows PE files.
#include <unistd.h>

#include <atomic>
#include <cinttypes>
#include <cstdio>
#include <iostream>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "Command.h"
#include "qor/host.h"
#include "qor/host/SysInfoFields.h"
#include "qor/platform/Waitable.h"

namespace qor::cli {
namespace {

// ---- qor host ---------------------------------------------------------------

// Writes records as "Title N" sections of "  Field: value" lines, or as JSON.
class RecordPrinter {
public:
    explicit RecordPrinter(bool json) : json_(json) {
        if (json_) std::cout << "{";
    }
    ~RecordPrinter() {
        if (json_) std::cout << (firstGroup_ ? "}\n" : "\n  ]\n}\n");
    }

    template <class Record>
    void Group(const std::vector<Record> &records) {
        using Class = qor::hostinfo::SysInfoClass<Record>;
        if (json_) {
            std::cout << (firstGroup_ ? "\n" : "\n  ],\n") << "  \"" << Class::title << "\": [";
            firstGroup_ = false;
            for (std::size_t i = 0; i < records.size(); ++i) {
                std::cout << (i ? ",\n" : "\n") << "    {";
                bool firstField = true;
                for (const auto &field : Class::fields) {
                    std::cout << (firstField ? "" : ", ") << "\"" << field.name << "\": ";
                    firstField = false;
                    if (field.text) std::cout << JsonString(records[i].*field.text);
                    else std::cout << records[i].*field.number;
                }
                std::cout << "}";
            }
            return;
        }
        if (records.empty()) std::cout << Class::title << ": none found\n\n";
        for (std::size_t i = 0; i < records.size(); ++i) {
            std::cout << Class::title << " " << i + 1 << "\n";
            for (const auto &field : Class::fields) {
                std::cout << "  " << field.name << ": ";
                if (field.text) std::cout << records[i].*field.text << "\n";
                else std::cout << records[i].*field.number << "\n";
            }
            std::cout << "\n";
        }
    }

private:
    static std::string JsonString(const std::string &text) {
        std::string out = "\"";
        for (unsigned char c : text) {
            if (c == '"' || c == '\\') {
                out += '\\';
                out += static_cast<char>(c);
            } else if (c < 0x20) {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\u%04x", c);
                out += escape;
            } else {
                out += static_cast<char>(c);
            }
        }
        return out + "\"";
    }

    bool json_;
    bool firstGroup_ = true;
};

template <class Record>
bool ReadGroup(CSysInfo &info, std::vector<Record> &records) {
    return info.GetInfo(records, 0);
}

template <class Record>
bool ReadSingle(CSysInfo &info, std::vector<Record> &records) {
    Record record;
    if (!info.GetInfo(record, 0)) return false;
    // A one-object query that found nothing leaves the record empty.
    if (!(record.Name.empty() && record.Description.empty() && record.Caption.empty()))
        records.push_back(record);
    return true;
}

template <>
bool ReadSingle(CSysInfo &info, std::vector<CSysInfo::OS> &records) {
    CSysInfo::OS os;
    if (!info.GetInfo(os, 0)) return false;
    records.push_back(os);
    return true;
}

int HostInfo(bool json) {
    CSysInfo info;
    std::vector<CSysInfo::OS> os;
    std::vector<CSysInfo::Processor> processors;
    std::vector<CSysInfo::RAM> memory;
    std::vector<CSysInfo::DiskDrive> disks;
    std::vector<CSysInfo::BIOS> bios;
    std::vector<CSysInfo::Motherboard> boards;
    std::vector<CSysInfo::NIC> adapters;
    std::vector<CSysInfo::VideoCard> video;
    bool ok = ReadSingle(info, os) & ReadGroup(info, processors) & ReadGroup(info, memory) &
              ReadGroup(info, disks) & ReadSingle(info, bios) & ReadSingle(info, boards) &
              ReadGroup(info, adapters) & ReadGroup(info, video);
    {
        RecordPrinter printer(json);
        printer.Group(os);
        printer.Group(processors);
        printer.Group(memory);
        printer.Group(disks);
        printer.Group(bios);
        printer.Group(boards);
        printer.Group(adapters);
        printer.Group(video);
    }
    if (!ok) std::cerr << "qor host info: some facts could not be read\n";
    return ok ? 0 : 1;
}

int HostAdapters() {
    try {
        auto adapters = LANInfo::GetLocalAdapterNames();
        auto masks = LANInfo::GetSubnetMasks();
        std::vector<std::string> ips;
        for (const auto &[name, ip] : adapters) ips.push_back(ip);
        auto macs = LANInfo::GetMACAddresses(ips);
        std::printf("%-16s %-16s %-16s %s\n", "adapter", "address", "mask", "MAC");
        for (const auto &[name, ip] : adapters) {
            std::string mask;
            if (auto it = masks.find(name); it != masks.end()) {
                unsigned long m = it->second;  // network byte order in memory
                const auto *b = reinterpret_cast<const unsigned char *>(&m);
                char text[16];
                std::snprintf(text, sizeof text, "%u.%u.%u.%u", b[0], b[1], b[2], b[3]);
                mask = text;
            }
            auto mac = macs.find(ip);
            std::printf("%-16s %-16s %-16s %s\n", name.c_str(), ip.c_str(), mask.c_str(),
                        mac == macs.end() ? "" : mac->second.c_str());
        }
        return 0;
    } catch (const LANInfoException &e) {
        std::cerr << "qor host adapters: " << e.function << ": " << e.message << " (" << e.errorCode << ")\n";
        return 1;
    }
}

constexpr const char *kHostHelp =
    "usage: qor host info [--json]\n"
    "       qor host adapters\n"
    "       qor host os-code\n"
    "\n"
    "info      lists every record of the machine's inventory: operating system,\n"
    "          processors, memory modules, disks, BIOS, motherboard, working wired\n"
    "          network adapters and video controllers, one field per line, or as a\n"
    "          JSON object of arrays with --json. Facts the host does not expose are\n"
    "          empty or 0; memory modules need the DMI table, which root can read.\n"
    "adapters  the network adapters with their IPv4 address, subnet mask and MAC.\n"
    "os-code   the operating system's version code (9 for a 6.x kernel, 0 when the\n"
    "          version is not in the table), on which the adapter strategies choose.\n";

int RunHost(const std::vector<std::string> &args) {
    if (WantsHelp(args)) {
        std::fputs(kHostHelp, stdout);
        return 0;
    }
    if (args.empty()) return UsageError("host: say which: info or adapters (see qor host --help)");
    const std::string &what = args[0];
    if (what == "info") {
        bool json = false;
        for (std::size_t i = 1; i < args.size(); ++i) {
            if (args[i] == "--json") json = true;
            else return UsageError("host info: unknown option '" + args[i] + "'");
        }
        return HostInfo(json);
    }
    if (what == "adapters") {
        if (args.size() > 1) return UsageError("host adapters takes no arguments");
        return HostAdapters();
    }
    if (what == "os-code") {
        std::printf("%d\n", OSVersionInfo::GetOSVersionInfo());
        return 0;
    }
    return UsageError("host: unknown question '" + what + "' (see qor host --help)");
}

const QorCommand hostCommand({
    "host",
    "describe this machine: inventory, adapters, OS version code",
    kHostHelp,
    &RunHost,
});

// ---- qor crc ----------------------------------------------------------------

// Draws a bar on standard error from the CRC thread's progress messages and
// keeps the final CRC.
class TerminalProgress : public qor::ProgressTarget {
public:
    explicit TerminalProgress(std::string label) : label_(std::move(label)) {}
    bool IsLive() const override { return true; }
    void Post(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override {
        if (message == CRC_32::kSetPosition) Draw(static_cast<unsigned>(wParam));
        if (message == CRC_32::kDone) {
            crc_ = static_cast<unsigned long>(lParam);
            std::fprintf(stderr, "\r\033[K");
        }
    }
    unsigned long crc() const { return crc_; }

private:
    void Draw(unsigned percent) {
        if (percent == shown_) return;
        shown_ = percent;
        constexpr unsigned kWidth = 40;
        unsigned filled = percent * kWidth / 100;
        std::fprintf(stderr, "\r%.30s [%s%s] %3u%%", label_.c_str(), std::string(filled, '#').c_str(),
                     std::string(kWidth - filled, ' ').c_str(), percent);
        std::fflush(stderr);
    }

    std::string label_;
    unsigned shown_ = 1000;
    std::atomic<unsigned long> crc_{0};
};

// Files from this size on show a bar when standard error is a terminal.
constexpr long long kBarThreshold = 8LL << 20;

constexpr const char *kCrcHelp =
    "usage: qor crc FILE...\n"
    "\n"
    "Prints the CRC-32 (IEEE 802.3, as zip and PNG use it) of each file as eight\n"
    "hex digits and the file's name. Large files show a progress bar when standard\n"
    "error is a terminal. An empty file's CRC is 00000000. Exits 1 when a file\n"
    "cannot be read or names a folder.\n";

int RunCrc(const std::vector<std::string> &args) {
    if (WantsHelp(args)) {
        std::fputs(kCrcHelp, stdout);
        return 0;
    }
    if (args.empty()) return UsageError("crc: name at least one file (see qor crc --help)");
    CRC_32 crc;
    int status = 0;
    const bool terminal = ::isatty(STDERR_FILENO) == 1;
    for (const std::string &path : args) {
        struct stat info {};
        if (::stat(path.c_str(), &info) != 0 || S_ISDIR(info.st_mode)) {
            std::cerr << "qor crc: " << path << ": " << (S_ISDIR(info.st_mode) ? "is a folder" : "cannot be read") << "\n";
            status = 1;
            continue;
        }
        unsigned long value = 0;
        if (terminal && info.st_size >= kBarThreshold) {
            TerminalProgress bar(path);
            unsigned long result = crc.CalcCRC(path.c_str(), &bar);
            HANDLE thread = reinterpret_cast<HANDLE>(result);
            if (thread == nullptr) {
                std::cerr << "qor crc: " << path << ": cannot be read\n";
                status = 1;
                continue;
            }
            WaitForSingleObject(thread, INFINITE);
            CloseHandle(thread);
            value = bar.crc();
        } else {
            value = crc.CalcCRC(path.c_str(), nullptr);
        }
        std::printf("%08lx  %s\n", value, path.c_str());
    }
    return status;
}

const QorCommand crcCommand({
    "crc",
    "print the CRC-32 of files",
    kCrcHelp,
    &RunCrc,
});

// ---- qor version ------------------------------------------------------------

std::string DottedVersion(unsigned long long version) {
    char text[64];
    std::snprintf(text, sizeof text, "%llu.%llu.%llu.%llu", version >> 48, (version >> 32) & 0xFFFF,
                  (version >> 16) & 0xFFFF, version & 0xFFFF);
    return text;
}

constexpr const char *kVersionHelp =
    "usage: qor version FILE\n"
    "\n"
    "Reads the version resource of a Windows executable, library or driver (32- or\n"
    "64-bit PE) and prints its fixed part (file and product versions, flags, OS and\n"
    "type), the normalised file and product versions of each translation, and every\n"
    "string table with its values. A file with one resource per language is read\n"
    "in the language a Windows program would get: the neutral one, else the\n"
    "language of LC_ALL, LC_MESSAGES or LANG, else US English, else the first.\n"
    "Exits 1 when the file has no version resource.\n";

int RunVersion(const std::vector<std::string> &args) {
    if (WantsHelp(args)) {
        std::fputs(kVersionHelp, stdout);
        return 0;
    }
    if (args.size() != 1) return UsageError("version: name one file (see qor version --help)");
    CVersionInfo info;
    if (!info.Load(args[0])) {
        std::cerr << "qor version: " << args[0] << ": no version resource (not a PE file, or none in it)\n";
        return 1;
    }
    if (const tagVS_FIXEDFILEINFO *fixed = info.GetFixedFileInfo()) {
        std::printf("FileVersion (fixed):    %s\n", DottedVersion(info.GetFileVersion()).c_str());
        std::printf("ProductVersion (fixed): %s\n", DottedVersion(info.GetProductVersion()).c_str());
        std::printf("FileFlags:              0x%08lX (mask 0x%08lX)\n", info.GetFileFlags(), info.GetFileFlagsMask());
        std::printf("FileOS:                 0x%08lX\n", info.GetOS());
        std::printf("FileType:               0x%08lX (subtype 0x%08lX)\n", info.GetFileType(), info.GetFileSubType());
        (void)fixed;
    }
    for (int t = 0; t < info.GetTranslationCount(); ++t) {
        const CVersionInfo::TRANSLATION *translation = info.GetTranslation(t);
        info.SetTranslation(t);
        std::printf("\nTranslation %04x%04x\n", translation->language, translation->codePage);
        std::printf("  %-17s %s\n", "file version", info.GetFileVersionAsString().c_str());
        std::printf("  %-17s %s\n", "product version", info.GetProductVersionAsString().c_str());
    }
    // Every string table as it stands, also one no translation names (real
    // files do have such mismatches, and then the reads above find nothing).
    if (const qor::VersionBlock *strings = qor::FindVersionBlock(*info.GetVersionBlock(), "\\StringFileInfo")) {
        for (const qor::VersionBlock &table : strings->children) {
            std::printf("\nStringFileInfo %s\n", table.key.c_str());
            for (const qor::VersionBlock &entry : table.children)
                std::printf("  %-17s %s\n", entry.key.c_str(), qor::VersionText(entry).c_str());
        }
    }
    return 0;
}

const QorCommand versionCommand({
    "version",
    "print the version resource of a Windows PE file",
    kVersionHelp,
    &RunVersion,
});

}  // namespace
}  // namespace qor::cli
