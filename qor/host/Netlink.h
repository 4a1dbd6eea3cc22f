// The kernel's interface and IPv4 address tables over rtnetlink: what IP
// Helper's GetIfTable and GetIpAddrTable give on Windows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qor {

struct NetlinkInterface {
    int index = 0;
    std::string name;
    unsigned flags = 0;  // IFF_UP, IFF_LOOPBACK, ...
};

struct NetlinkAddress {
    int index = 0;
    std::uint32_t address = 0;  // network byte order
    unsigned prefixLength = 0;
};

// Why a dump failed: the socket could not be had, or the dump itself failed.
enum class NetlinkFailure { None, Socket, Dump };

// Fill the table and return None, or return the failure with errno set.
NetlinkFailure ReadNetlinkInterfaces(std::vector<NetlinkInterface> &out);
NetlinkFailure ReadNetlinkAddresses(std::vector<NetlinkAddress> &out);

}  // namespace qor
