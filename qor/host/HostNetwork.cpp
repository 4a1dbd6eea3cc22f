// Win32_NetworkAdapter: the interfaces of /sys/class/net, with the two
// states the adapter filter looks at, Availability and NetConnectionStatus,
// in their WMI codes.
#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "qor/host/HostObjects.h"

namespace qor::hostinfo {
namespace {

constexpr unsigned long kInterfaceUp = 0x1;  // IFF_UP

// Link types (ARPHRD_*) and what WMI calls them. Plain Ethernet is told apart
// from wireless by the interface's wireless folders.
struct LinkTypeName {
    int type;
    const char *adapterType;
};

constexpr LinkTypeName kLinkTypeNames[] = {
    {1, "Ethernet 802.3"},  {6, "Token Ring 802.5"}, {32, "InfiniBand"}, {512, "PPP"},
    {768, "IP-in-IP tunnel"}, {776, "IPv6-in-IPv4 tunnel"}, {65534, "Tunnel"},
};

// operstate values and the NetConnectionStatus they mean.
struct OperState {
    const char *state;
    int status;
};

constexpr OperState kOperStates[] = {
    {"up", 2},             // Connected
    {"dormant", 1},        // Connecting
    {"down", 7},           // Media disconnected
    {"lowerlayerdown", 7}, // Media disconnected
    {"notpresent", 4},     // Hardware not present
    {"testing", 8},        // Authenticating: the nearest WMI has to a link under test
};

constexpr int kAvailabilityRunning = 3;
constexpr int kAvailabilityOffLine = 8;

PropertyValue AdapterType(const std::string &root, const std::string &base) {
    PropertyValue type = ReadHostValue(root, base + "/type");
    if (!type) return std::nullopt;
    int number = std::atoi(type->c_str());
    if (number == 1 && (HostPathExists(root, base + "/wireless") || HostPathExists(root, base + "/phy80211")))
        return std::string("Wireless");
    for (const LinkTypeName &entry : kLinkTypeNames)
        if (entry.type == number) return std::string(entry.adapterType);
    return std::nullopt;
}

// Upper case with colons, as WMI shows it; null for no address or all zeros.
PropertyValue MacAddress(const std::string &root, const std::string &base) {
    PropertyValue address = ReadHostValue(root, base + "/address");
    if (!address || address->find_first_not_of("0:") == std::string::npos) return std::nullopt;
    for (char &c : *address) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return address;
}

int ConnectionStatus(const std::string &root, const std::string &base) {
    PropertyValue state = ReadHostValue(root, base + "/operstate");
    if (state) {
        for (const OperState &entry : kOperStates)
            if (*state == entry.state) return entry.status;
    }
    // "unknown": many virtual and some real drivers never report a state;
    // the carrier says whether a link stands.
    return ReadHostValue(root, base + "/carrier") == "1" ? 2 : 0;
}

}  // namespace

std::vector<HostObject> ReadNetworkAdapters(const std::string &root) {
    std::vector<std::pair<long, HostObject>> adapters;
    PropertyValue host = HostName(root);
    for (const std::string &name : ListHostFolder(root, "/sys/class/net")) {
        std::string base = "/sys/class/net/" + name;
        PropertyValue index = ReadHostValue(root, base + "/ifindex");
        if (!index) continue;  // not an interface folder
        PropertyValue driver = HostLinkName(root, base + "/device/driver");
        PropertyValue alias = ReadHostValue(root, base + "/ifalias");
        PropertyValue flags = ReadHostValue(root, base + "/flags");
        bool up = flags && (std::strtoul(flags->c_str(), nullptr, 16) & kInterfaceUp);
        HostObject adapter;
        adapter["AdapterType"] = AdapterType(root, base);
        adapter["MACAddress"] = MacAddress(root, base);
        adapter["DeviceID"] = index;
        adapter["Name"] = name;
        adapter["Description"] = alias ? alias : PropertyValue(name);
        adapter["ProductName"] = driver ? driver : PropertyValue(name);
        adapter["ServiceName"] = driver;
        adapter["SystemName"] = host;
        adapter["Availability"] = std::to_string(up ? kAvailabilityRunning : kAvailabilityOffLine);
        adapter["NetConnectionStatus"] = std::to_string(ConnectionStatus(root, base));
        adapters.emplace_back(std::atol(index->c_str()), std::move(adapter));
    }
    std::stable_sort(adapters.begin(), adapters.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<HostObject> ordered;
    for (auto &entry : adapters) ordered.push_back(std::move(entry.second));
    return ordered;
}

}  // namespace qor::hostinfo
