// LANInfo: the host's network adapters: their names and IPv4 addresses, the
// MAC addresses of hosts on the local network, and the adapters' subnet masks.
//
// Each question has several strategies, kept as named operations; the one
// used is chosen by OSVersionInfo::GetOSVersionInfo's code:
//
//   GetLocalAdapterNames  codes 1, 2: IPH2   code 3: WSC   others: IPH
//   GetMACAddresses       codes 1 to 5: SYS                others: IPH
//   GetSubnetMasks        codes 1, 3: throws               others: IPH
//
// A failing strategy throws LANInfoException; there is no falling back to
// another. On Linux the strategies read:
//   IPH   getifaddrs(); SendARP's stand-in answers the host's own addresses
//         from its adapters and others from the kernel's neighbour table,
//         after prompting the kernel to resolve them with one datagram
//   IPH2  the interface and address tables over rtnetlink
//   WSC   the SIOCGIFCONF interface list of a socket
//   SYS   "ping -c 2" for each address, then the neighbour listing of
//         "ip neigh" (or "arp -an" without ip), parsed by regular expressions
//   NetBIOS  there is none on Linux: each helper throws its failure text
//
// Adapter names are the interface names ("eth0"). Loopback adapters and the
// addresses 0.0.0.0 and 127.x.x.x are never listed. MAC texts are upper case
// with hyphens, "00-1A-2B-3C-4D-5E". A subnet mask is the 32-bit value of its
// four bytes in network order, as IP Helper gives it (255.255.255.0 is
// 0x00FFFFFF on a little-endian host).
#pragma once

#include <map>
#include <string>
#include <vector>

#include "qor/host/LANInfoException.h"
#include "qor/host/NetBIOS.h"

class LANInfo {
public:
    using AdapterAddresses = std::map<std::string, std::string>;  // adapter name -> dotted IP
    using MACAddresses = std::map<std::string, std::string>;      // dotted IP -> MAC text
    using SubnetMasks = std::map<std::string, unsigned long>;     // adapter name -> mask

    static AdapterAddresses GetLocalAdapterNames();
    // The MAC of each address that answers; an address without one is left out.
    static MACAddresses GetMACAddresses(std::vector<std::string> ips);
    // The MAC of one address, or "" when it has none.
    static std::string GetMACAddress(std::string ip);
    static SubnetMasks GetSubnetMasks();

    // The same questions with the strategy chosen for a given version code.
    static AdapterAddresses GetLocalAdapterNames(int osCode);
    static MACAddresses GetMACAddresses(const std::vector<std::string> &ips, int osCode);
    static SubnetMasks GetSubnetMasks(int osCode);

    // Parses "00-1A-2B-3C-4D-5E" (or with colons, any case) into six bytes.
    // False, leaving `bytes` unchanged, when the text is not such an address.
    static bool HumanReadableToSixByte(const char *text, unsigned char *bytes);
    // Formats six bytes as "%02X-%02X-%02X-%02X-%02X-%02X".
    static std::string SixByteToHumanReadable(const unsigned char *bytes);

    // The strategies.
    static AdapterAddresses GetLocalAdapterNamesIPH();
    static AdapterAddresses GetLocalAdapterNamesIPH2();
    static AdapterAddresses GetLocalAdapterNamesWSC();
    static MACAddresses GetMACAddressesIPH(const std::vector<std::string> &ips);
    static MACAddresses GetMACAddressesSYS(const std::vector<std::string> &ips);
    static SubnetMasks GetSubnetMasksIPH();

    // NetBIOS helpers. Without NetBIOS each throws its failure text with the
    // return code NRC_OPENERR ("NetBIOS not loaded").
    static void NBEnum(_LANA_ENUM &lanas);
    static void NBReset(unsigned char lana, unsigned char sessions, unsigned char names);
    static void NBAStat(unsigned char lana, _ASTAT_ &status, const char *name);
    // The first name of the adapter's name table, without its padding.
    static std::string ParseAdapterNameFromAStat(_ASTAT_ &status);
    // The adapter's address in the MAC text form.
    static std::string ParseMacFromAStat(_ASTAT_ &status);
};
