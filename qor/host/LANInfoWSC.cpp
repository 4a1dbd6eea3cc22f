// LANInfo's Winsock strategy: the interface list a socket reports through
// SIOCGIFCONF, the counterpart of WsControl's entity queries.
#include <arpa/inet.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <vector>

#include "qor/host/LANInfo.h"

namespace {

struct WscSocket {
    int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ~WscSocket() {
        if (fd >= 0) ::close(fd);
    }
};

}  // namespace

LANInfo::AdapterAddresses LANInfo::GetLocalAdapterNamesWSC() {
    static const char kFunction[] = "LANInfo::GetLocalAdapterNamesWSC";
    WscSocket sock;
    if (sock.fd < 0) throw LANInfoException(kFunction, "WSAStartup failed", errno, 0);

    // Grow the request buffer until the kernel's answer leaves room to spare,
    // which proves it held every interface.
    std::vector<ifreq> entries;
    ifconf conf{};
    for (std::size_t capacity = 16;; capacity *= 2) {
        try {
            entries.assign(capacity, ifreq{});
        } catch (const std::bad_alloc &) {
            throw LANInfoException(kFunction, "Could not allocate memory for entityIds", ENOMEM, 0);
        }
        conf.ifc_len = static_cast<int>(capacity * sizeof(ifreq));
        conf.ifc_req = entries.data();
        if (::ioctl(sock.fd, SIOCGIFCONF, &conf) != 0)
            throw LANInfoException(kFunction, "WsControl failed", errno, 0);
        if (static_cast<std::size_t>(conf.ifc_len) < capacity * sizeof(ifreq) || capacity >= 65536)
            break;
    }

    AdapterAddresses adapters;
    const std::size_t count = static_cast<std::size_t>(conf.ifc_len) / sizeof(ifreq);
    for (std::size_t i = 0; i < count; ++i) {
        ifreq &entry = entries[i];
        if (entry.ifr_addr.sa_family != AF_INET) continue;
        const auto *ip = reinterpret_cast<const unsigned char *>(
            &reinterpret_cast<sockaddr_in *>(&entry.ifr_addr)->sin_addr.s_addr);
        ifreq flags{};
        std::memcpy(flags.ifr_name, entry.ifr_name, IFNAMSIZ);
        if (::ioctl(sock.fd, SIOCGIFFLAGS, &flags) != 0)
            throw LANInfoException(kFunction, "WsControl failed", errno, 0);
        if (flags.ifr_flags & IFF_LOOPBACK) continue;
        char text[16];
        std::snprintf(text, sizeof text, "%d.%d.%d.%d", ip[0], ip[1], ip[2], ip[3]);
        if (std::strcmp(text, "0.0.0.0") == 0 || ip[0] == 127) continue;
        adapters.emplace(std::string(entry.ifr_name, ::strnlen(entry.ifr_name, IFNAMSIZ)), text);
    }
    return adapters;
}
