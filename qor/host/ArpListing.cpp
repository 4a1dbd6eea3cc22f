#include "qor/host/ArpListing.h"

#include <boost/regex.hpp>

#include <sstream>

#include "qor/host/LANInfo.h"

namespace qor {
namespace {

// Each listing format: its line pattern, with the address as group 1 and the
// MAC as group 2. The Windows pattern is the one the ARP strategy was written
// for; the Linux ones accept only the neighbour states a dynamic entry has.
struct ArpLineFormat {
    const char *name;
    const char *pattern;
};

constexpr ArpLineFormat kArpLineFormats[] = {
    {"windows arp -a", R"(\s*([0-9\.]+)\s+([0-9a-fA-F\-]+)\s+dynamic\s*)"},
    {"ip neigh",
     R"(\s*([0-9\.]+)\s+dev\s+\S+\s+lladdr\s+([0-9a-fA-F:]+)(?:\s+[a-z_]+)*\s+(?:REACHABLE|STALE|DELAY|PROBE)\s*)"},
    {"arp -an", R"(\s*\S+\s+\(([0-9\.]+)\)\s+at\s+([0-9a-fA-F:]+)\s+\[\w+\]\s+on\s+\S+\s*)"},
};

const std::vector<boost::regex> &ArpLineRegexes() {
    static const std::vector<boost::regex> regexes = [] {
        std::vector<boost::regex> built;
        for (const ArpLineFormat &format : kArpLineFormats) built.emplace_back(format.pattern);
        return built;
    }();
    return regexes;
}

// Normalises a MAC text; empty when it is not six bytes.
std::string NormalisedMac(const std::string &text) {
    unsigned char bytes[6];
    if (!LANInfo::HumanReadableToSixByte(text.c_str(), bytes)) return {};
    return LANInfo::SixByteToHumanReadable(bytes);
}

}  // namespace

std::map<std::string, std::string> ParseArpListing(const std::string &text) {
    std::map<std::string, std::string> rows;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        for (const boost::regex &regex : ArpLineRegexes()) {
            boost::smatch match;
            if (!boost::regex_match(line, match, regex)) continue;
            std::string mac = NormalisedMac(match[2].str());
            if (!mac.empty()) rows.emplace(match[1].str(), mac);
            break;
        }
    }
    return rows;
}

std::map<std::string, std::string> ParseProcNetArp(const std::string &text) {
    constexpr unsigned kComplete = 0x2;  // ATF_COM
    std::map<std::string, std::string> rows;
    std::istringstream lines(text);
    std::string line;
    std::getline(lines, line);  // the heading
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        std::string ip, type, flags, mac;
        if (!(fields >> ip >> type >> flags >> mac)) continue;
        unsigned long flagBits = std::strtoul(flags.c_str(), nullptr, 16);
        std::string normalised = NormalisedMac(mac);
        if (!(flagBits & kComplete) || normalised.empty() || normalised == "00-00-00-00-00-00")
            continue;
        rows.emplace(ip, normalised);
    }
    return rows;
}

}  // namespace qor
