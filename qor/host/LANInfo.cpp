// LANInfo's choice of strategy, the MAC text forms, and the NetBIOS helpers.
#include "qor/host/LANInfo.h"

#include <cctype>
#include <cstdio>
#include <cstring>

#include "qor/host/OSVersionInfo.h"

namespace {

// A range of version codes and the strategy it gets; codes outside every
// range get the question's default.
template <class Strategy>
struct LanChoice {
    int firstCode;
    int lastCode;
    Strategy strategy;
};

using AdapterStrategy = LANInfo::AdapterAddresses (*)();
using MacStrategy = LANInfo::MACAddresses (*)(const std::vector<std::string> &);
using MaskStrategy = LANInfo::SubnetMasks (*)();

LANInfo::SubnetMasks SubnetMasksUnsupported() {
    throw LANInfoException("LANInfo::GetSubnetMasks", "", 0, 0);
}

constexpr LanChoice<AdapterStrategy> kAdapterChoices[] = {
    {1, 2, &LANInfo::GetLocalAdapterNamesIPH2},
    {3, 3, &LANInfo::GetLocalAdapterNamesWSC},
};
constexpr AdapterStrategy kAdapterDefault = &LANInfo::GetLocalAdapterNamesIPH;

constexpr LanChoice<MacStrategy> kMacChoices[] = {
    {1, 5, &LANInfo::GetMACAddressesSYS},
};
constexpr MacStrategy kMacDefault = &LANInfo::GetMACAddressesIPH;

constexpr LanChoice<MaskStrategy> kMaskChoices[] = {
    {1, 1, &SubnetMasksUnsupported},
    {3, 3, &SubnetMasksUnsupported},
};
constexpr MaskStrategy kMaskDefault = &LANInfo::GetSubnetMasksIPH;

template <class Strategy, std::size_t N>
Strategy ChooseStrategy(const LanChoice<Strategy> (&choices)[N], Strategy fallback, int code) {
    for (const auto &choice : choices)
        if (code >= choice.firstCode && code <= choice.lastCode) return choice.strategy;
    return fallback;
}

int HexDigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}  // namespace

LANInfo::AdapterAddresses LANInfo::GetLocalAdapterNames() {
    return GetLocalAdapterNames(OSVersionInfo::GetOSVersionInfo());
}

LANInfo::AdapterAddresses LANInfo::GetLocalAdapterNames(int osCode) {
    return ChooseStrategy(kAdapterChoices, kAdapterDefault, osCode)();
}

LANInfo::MACAddresses LANInfo::GetMACAddresses(std::vector<std::string> ips) {
    return GetMACAddresses(ips, OSVersionInfo::GetOSVersionInfo());
}

LANInfo::MACAddresses LANInfo::GetMACAddresses(const std::vector<std::string> &ips, int osCode) {
    return ChooseStrategy(kMacChoices, kMacDefault, osCode)(ips);
}

std::string LANInfo::GetMACAddress(std::string ip) {
    MACAddresses found = GetMACAddresses(std::vector<std::string>{ip});
    auto it = found.find(ip);
    return it == found.end() ? std::string() : it->second;
}

LANInfo::SubnetMasks LANInfo::GetSubnetMasks() {
    return GetSubnetMasks(OSVersionInfo::GetOSVersionInfo());
}

LANInfo::SubnetMasks LANInfo::GetSubnetMasks(int osCode) {
    return ChooseStrategy(kMaskChoices, kMaskDefault, osCode)();
}

bool LANInfo::HumanReadableToSixByte(const char *text, unsigned char *bytes) {
    if (text == nullptr || bytes == nullptr) return false;
    unsigned char parsed[6];
    const char *at = text;
    for (int i = 0; i < 6; ++i) {
        if (i > 0) {
            if (*at != '-' && *at != ':') return false;
            ++at;
        }
        int high = HexDigitValue(at[0]);
        int low = high < 0 ? -1 : HexDigitValue(at[1]);
        if (low < 0) return false;
        parsed[i] = static_cast<unsigned char>(high * 16 + low);
        at += 2;
    }
    if (*at != '\0') return false;
    std::memcpy(bytes, parsed, sizeof parsed);
    return true;
}

std::string LANInfo::SixByteToHumanReadable(const unsigned char *bytes) {
    char text[18];
    std::snprintf(text, sizeof text, "%02X-%02X-%02X-%02X-%02X-%02X", bytes[0], bytes[1], bytes[2],
                  bytes[3], bytes[4], bytes[5]);
    return text;
}

void LANInfo::NBEnum(_LANA_ENUM &lanas) {
    lanas.length = 0;
    throw LANInfoException("LANInfo::NBEnum", "NetBIOS LAN adapter enumeration failed.", NRC_OPENERR, 0);
}

void LANInfo::NBReset(unsigned char lana, unsigned char sessions, unsigned char names) {
    throw LANInfoException("LANInfo::NBReset", "NetBIOS LAN adapter reset failed.", NRC_OPENERR, 0);
}

void LANInfo::NBAStat(unsigned char lana, _ASTAT_ &status, const char *name) {
    std::memset(&status, 0, sizeof status);
    throw LANInfoException("LANInfo::NBAStat", "NetBIOS LAN adapter retrieve status failed.",
                           NRC_OPENERR, 0);
}

std::string LANInfo::ParseAdapterNameFromAStat(_ASTAT_ &status) {
    // A NetBIOS name is padded with blanks to 15 characters; the 16th is its suffix.
    const char *name = reinterpret_cast<const char *>(status.NameBuff[0].name);
    std::string text(name, ::strnlen(name, NCBNAMSZ - 1));
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

std::string LANInfo::ParseMacFromAStat(_ASTAT_ &status) {
    return SixByteToHumanReadable(status.adapt.adapter_address);
}
