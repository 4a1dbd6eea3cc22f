// Neighbour listings as the system commands print them, parsed into a map
// from dotted IPv4 address to MAC text (upper case, hyphens). Only dynamic
// rows count; static and permanent ones, and incomplete ones, are left out.
#pragma once

#include <map>
#include <string>

namespace qor {

// Recognises, line by line:
//   the Windows "arp -a" listing    "  10.0.0.1   00-11-22-33-44-55   dynamic"
//   the Linux "ip neigh" listing    "10.0.0.1 dev eth0 lladdr 00:11:22:33:44:55 REACHABLE"
//   the Linux "arp -an" listing     "? (10.0.0.1) at 00:11:22:33:44:55 [ether] on eth0"
// The first row of an address wins.
std::map<std::string, std::string> ParseArpListing(const std::string &text);

// The kernel's table /proc/net/arp: complete entries only.
std::map<std::string, std::string> ParseProcNetArp(const std::string &text);

}  // namespace qor
