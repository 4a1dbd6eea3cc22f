// LANInfo's IP Helper strategies, on getifaddrs, rtnetlink and the kernel's
// neighbour table.
#include <arpa/inet.h>
#include <ifaddrs.h>
#include <linux/if_packet.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <new>

#include "qor/host/ArpListing.h"
#include "qor/host/LANInfo.h"
#include "qor/host/Netlink.h"
#include "qor/platform/SystemError.h"
#include "qor/platform/Time.h"

namespace {

// Zero and loopback addresses are never an adapter's.
bool ListableAddress(std::uint32_t networkOrder) {
    std::uint32_t host = ntohl(networkOrder);
    return host != 0 && (host >> 24) != 127;
}

std::string DottedAddress(std::uint32_t networkOrder) {
    char text[INET_ADDRSTRLEN] = "";
    in_addr address{};
    address.s_addr = networkOrder;
    ::inet_ntop(AF_INET, &address, text, sizeof text);
    return text;
}

struct InterfaceAddressList {
    ifaddrs *head = nullptr;
    ~InterfaceAddressList() {
        if (head != nullptr) ::freeifaddrs(head);
    }
};

// Throws for a failed netlink read, with the texts of the IP Helper call it
// stands in for.
void CheckNetlinkRead(qor::NetlinkFailure failure, const char *function, const char *onSocket,
                      const char *onDump) {
    switch (failure) {
    case qor::NetlinkFailure::Socket: throw LANInfoException(function, onSocket, errno, 0);
    case qor::NetlinkFailure::Dump: throw LANInfoException(function, onDump, errno, 0);
    case qor::NetlinkFailure::None: break;
    }
}

// Reads both netlink tables; throws with the texts of the IP Helper calls
// they stand in for.
void ReadIpTables(const char *function, std::vector<qor::NetlinkInterface> &interfaces,
                  std::vector<qor::NetlinkAddress> &addresses) {
    try {
        CheckNetlinkRead(qor::ReadNetlinkInterfaces(interfaces), function, "Unexpected return code from GetIfTable",
                         "GetIfTable failed");
        CheckNetlinkRead(qor::ReadNetlinkAddresses(addresses), function,
                         "Unexpected return code from GetIpAddrTable", "GetIpAddrTable1 failed");
    } catch (const std::bad_alloc &) {
        throw LANInfoException(function, "Out of memory", ENOMEM, 0);
    }
}

// Reads both netlink tables and maps the name of each listable adapter to
// what `value` makes of its address row; an adapter's first row wins.
template <class Map, class Value>
Map MapAdapterAddresses(const char *function, Value value) {
    std::vector<qor::NetlinkInterface> interfaces;
    std::vector<qor::NetlinkAddress> addresses;
    ReadIpTables(function, interfaces, addresses);
    Map adapters;
    for (const qor::NetlinkAddress &row : addresses) {
        if (!ListableAddress(row.address)) continue;
        for (const qor::NetlinkInterface &iface : interfaces) {
            if (iface.index != row.index || (iface.flags & IFF_LOOPBACK)) continue;
            adapters.emplace(iface.name, value(row));
            break;
        }
    }
    return adapters;
}

// The MAC of one of the host's own addresses, from its adapter.
bool OwnAdapterMac(std::uint32_t address, unsigned char *mac) {
    InterfaceAddressList list;
    if (::getifaddrs(&list.head) != 0) return false;
    std::string name;
    for (ifaddrs *it = list.head; it != nullptr; it = it->ifa_next) {
        if (it->ifa_addr == nullptr || it->ifa_addr->sa_family != AF_INET) continue;
        if (reinterpret_cast<sockaddr_in *>(it->ifa_addr)->sin_addr.s_addr == address) {
            name = it->ifa_name;
            break;
        }
    }
    if (name.empty()) return false;
    for (ifaddrs *it = list.head; it != nullptr; it = it->ifa_next) {
        if (it->ifa_addr == nullptr || it->ifa_addr->sa_family != AF_PACKET || name != it->ifa_name)
            continue;
        const auto *link = reinterpret_cast<sockaddr_ll *>(it->ifa_addr);
        if (link->sll_halen != 6) return false;
        std::memcpy(mac, link->sll_addr, 6);
        return true;
    }
    return false;
}

std::map<std::string, std::string> ReadNeighbourTable() {
    std::ifstream file("/proc/net/arp");
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    return qor::ParseProcNetArp(text);
}

// Asks the kernel to resolve `address` by sending it one datagram on the
// discard port; the answer lands in the neighbour table.
void PromptResolution(std::uint32_t address) {
    int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) return;
    sockaddr_in peer{};
    peer.sin_family = AF_INET;
    peer.sin_port = htons(9);
    peer.sin_addr.s_addr = address;
    ::sendto(fd, "", 0, MSG_DONTWAIT, reinterpret_cast<sockaddr *>(&peer), sizeof peer);
    ::close(fd);
}

// SendARP's stand-in: the MAC for one address, or "" when none answers
// within about a second, as long as an ARP exchange takes.
std::string ResolveMac(std::uint32_t address) {
    unsigned char mac[6];
    if (OwnAdapterMac(address, mac)) return LANInfo::SixByteToHumanReadable(mac);
    const std::string dotted = DottedAddress(address);
    constexpr int kTries = 20;
    constexpr DWORD kStepMs = 50;
    for (int attempt = 0; attempt <= kTries; ++attempt) {
        auto table = ReadNeighbourTable();
        if (auto it = table.find(dotted); it != table.end()) return it->second;
        if (attempt == 0) PromptResolution(address);
        else if (attempt < kTries) Sleep(kStepMs);
    }
    return {};
}

}  // namespace

LANInfo::AdapterAddresses LANInfo::GetLocalAdapterNamesIPH() {
    static const char kFunction[] = "LANInfo::GetLocalAdapterNamesIPH";
    InterfaceAddressList list;
    if (::getifaddrs(&list.head) != 0) {
        int error = errno;
        if (error == ENOMEM) throw LANInfoException(kFunction, "Out of memory", error, 0);
        throw LANInfoException(
            kFunction, "GetAdaptersInfo is not supported by the operating system running on the local computer",
            error, 0);
    }
    AdapterAddresses adapters;
    bool anyAdapter = false;
    for (ifaddrs *it = list.head; it != nullptr; it = it->ifa_next) {
        if (it->ifa_flags & IFF_LOOPBACK) continue;
        anyAdapter = true;
        if (it->ifa_addr == nullptr || it->ifa_addr->sa_family != AF_INET) continue;
        std::uint32_t address = reinterpret_cast<sockaddr_in *>(it->ifa_addr)->sin_addr.s_addr;
        if (ListableAddress(address)) adapters.emplace(it->ifa_name, DottedAddress(address));
    }
    if (!anyAdapter)
        throw LANInfoException(kFunction, "No Ethernet adapters found on the local computer", ENODEV, 0);
    return adapters;
}

LANInfo::AdapterAddresses LANInfo::GetLocalAdapterNamesIPH2() {
    return MapAdapterAddresses<AdapterAddresses>("LANInfo::GetLocalAdapterNamesIPH2",
                                                 [](const qor::NetlinkAddress &row) { return DottedAddress(row.address); });
}

LANInfo::SubnetMasks LANInfo::GetSubnetMasksIPH() {
    return MapAdapterAddresses<SubnetMasks>("LANInfo::GetSubnetMasksIPH", [](const qor::NetlinkAddress &row) {
        std::uint32_t host = row.prefixLength == 0 ? 0
                             : row.prefixLength >= 32 ? 0xFFFFFFFFu
                                                      : ~((1u << (32 - row.prefixLength)) - 1);
        return static_cast<unsigned long>(htonl(host));
    });
}

LANInfo::MACAddresses LANInfo::GetMACAddressesIPH(const std::vector<std::string> &ips) {
    MACAddresses found;
    for (const std::string &ip : ips) {
        in_addr address{};
        if (::inet_pton(AF_INET, ip.c_str(), &address) != 1 || !ListableAddress(address.s_addr))
            continue;
        std::string mac = ResolveMac(address.s_addr);
        if (!mac.empty()) found.emplace(ip, mac);
    }
    return found;
}
