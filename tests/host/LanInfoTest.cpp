#include <gtest/gtest.h>

#include <arpa/inet.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "qor/host/ArpListing.h"
#include "qor/host/LANInfo.h"
#include "qor/host/OSVersionInfo.h"

namespace {

using Rows = std::map<std::string, std::string>;

std::string ReadData(const std::string &name) {
    std::ifstream file(std::string(QOR_SOURCE_DIR) + "/tests/host/data/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Captured listings of each format; static, permanent and incomplete rows
// never count, MACs come out upper case with hyphens, the first row of an
// address wins.
TEST(ArpListing, ParsesEachListingFormat) {
    struct Case { std::string text; Rows expected; };
    const Case cases[] = {
        {"  10.1.1.1   00-11-22-33-44-55   static\n", {}},
        {"  10.1.1.1   00-11-22-33-44   dynamic\n", {}},
        {"10.1.1.1 00-11-22-33-44-55 dynamic", {{"10.1.1.1", "00-11-22-33-44-55"}}},
        {ReadData("arp_windows.txt"),
         {{"192.168.10.1", "00-1A-2B-3C-4D-5E"}, {"192.168.10.40", "A4-BB-6D-01-02-03"}, {"10.0.0.1", "00-50-56-C0-00-08"}}},
        {ReadData("ip_neigh.txt"),
         {{"192.168.10.1", "00-1A-2B-3C-4D-5E"},
          {"192.168.10.40", "A4-BB-6D-01-02-03"},
          {"192.168.10.41", "A4-BB-6D-01-02-04"},
          {"192.168.10.42", "A4-BB-6D-01-02-05"}}},
        {ReadData("arp_an.txt"), {{"192.168.10.1", "00-1A-2B-3C-4D-5E"}, {"10.0.0.1", "00-50-56-C0-00-08"}}},
        {ReadData("proc_net_arp.txt"), {}},  // not a command listing
    };
    for (const Case &c : cases) EXPECT_EQ(qor::ParseArpListing(c.text), c.expected) << c.text;
    EXPECT_EQ(qor::ParseProcNetArp(ReadData("proc_net_arp.txt")),
              (Rows{{"192.168.10.1", "00-1A-2B-3C-4D-5E"}, {"192.168.10.50", "02-00-00-00-00-50"}}));
}

TEST(LANInfo, MacTextConversions) {
    struct Case { const char *text; bool valid; };
    const Case cases[] = {
        {"00-1A-2B-3C-4D-5E", true}, {"00:1a:2b:3c:4d:5e", true}, {"00-1a:2B-3c:4D-5e", true},
        {"00-1A-2B-3C-4D", false},   {"00-1A-2B-3C-4D-5E-6F", false}, {"0-1A-2B-3C-4D-5E", false},
        {"00-1A-2B-3C-4D-5G", false}, {"001A2B3C4D5E", false}, {"", false},
    };
    for (const Case &c : cases) {
        unsigned char bytes[6] = {9, 9, 9, 9, 9, 9};
        EXPECT_EQ(LANInfo::HumanReadableToSixByte(c.text, bytes), c.valid) << c.text;
        if (c.valid) EXPECT_EQ(LANInfo::SixByteToHumanReadable(bytes), "00-1A-2B-3C-4D-5E");
        else EXPECT_EQ(bytes[0], 9);
    }
    EXPECT_FALSE(LANInfo::HumanReadableToSixByte(nullptr, nullptr));
}

TEST(LANInfo, SubnetMasksRefusedOnCodesOneAndThree) {
    for (int code : {1, 3}) {
        try {
            LANInfo::GetSubnetMasks(code);
            ADD_FAILURE() << "no exception for code " << code;
        } catch (const LANInfoException &e) {
            EXPECT_EQ(e.function, "LANInfo::GetSubnetMasks");
            EXPECT_EQ(e.message, "");
        }
    }
    EXPECT_EQ(LANInfo::GetSubnetMasks(9), LANInfo::GetSubnetMasksIPH());
}

// A host with only a loopback interface has no adapter to list, which the
// GetAdaptersInfo strategy reports by its exception; such a host skips the
// tests that need one.
bool HostHasAdapters() {
    try {
        LANInfo::GetLocalAdapterNamesIPH();
        return true;
    } catch (const LANInfoException &e) {
        EXPECT_EQ(e.message, "No Ethernet adapters found on the local computer");
        return false;
    }
}

TEST(LANInfo, StrategiesAgreeAndNeverListLoopbackOrZero) {
    if (!HostHasAdapters()) GTEST_SKIP() << "no network adapter besides loopback";
    // Each strategy reads the same host its own way, so the choice table
    // shows in which one it equals, and all agree on what they list.
    const auto iph = LANInfo::GetLocalAdapterNamesIPH();
    EXPECT_EQ(iph, LANInfo::GetLocalAdapterNamesIPH2());
    EXPECT_EQ(iph, LANInfo::GetLocalAdapterNamesWSC());
    for (int code : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}) EXPECT_EQ(LANInfo::GetLocalAdapterNames(code), iph) << code;
    EXPECT_EQ(LANInfo::GetLocalAdapterNames(), iph);
    for (const auto &[name, ip] : iph) {
        EXPECT_NE(name, "lo");
        EXPECT_NE(ip, "0.0.0.0");
        EXPECT_NE(ip.rfind("127.", 0), 0u) << ip;
    }
    for (const auto &[name, mask] : LANInfo::GetSubnetMasksIPH()) EXPECT_NE(name, "lo");
    EXPECT_EQ(LANInfo::GetMACAddress("127.0.0.1"), "");
    EXPECT_EQ(LANInfo::GetMACAddress("0.0.0.0"), "");
}

TEST(LANInfo, SubnetMasksBelongToListedAdapters) {
    const auto adapters = LANInfo::GetLocalAdapterNamesIPH2();
    const auto masks = LANInfo::GetSubnetMasksIPH();
    EXPECT_EQ(masks.size(), adapters.size());
    for (const auto &[name, mask] : masks) {
        EXPECT_EQ(adapters.count(name), 1u) << name;
        // A mask is contiguous ones from the top, in network byte order.
        std::uint32_t host = ntohl(static_cast<std::uint32_t>(mask));
        std::uint32_t inverse = ~host;
        EXPECT_EQ(inverse & (inverse + 1), 0u) << std::hex << host;
    }
}

TEST(LANInfo, OwnAddressesAnswerWithTheirAdaptersMac) {
    if (!HostHasAdapters()) GTEST_SKIP() << "no network adapter besides loopback";
    for (const auto &[name, ip] : LANInfo::GetLocalAdapterNamesIPH()) {
        std::ifstream file("/sys/class/net/" + name + "/address");
        std::string sysfs;
        file >> sysfs;
        unsigned char bytes[6];
        ASSERT_TRUE(LANInfo::HumanReadableToSixByte(sysfs.c_str(), bytes)) << sysfs;
        EXPECT_EQ(LANInfo::GetMACAddressesIPH({ip}), (Rows{{ip, LANInfo::SixByteToHumanReadable(bytes)}}));
        EXPECT_EQ(LANInfo::GetMACAddress(ip), LANInfo::SixByteToHumanReadable(bytes));
    }
}

TEST(LANInfo, NeighboursAnswerThroughBothMacStrategies) {
    std::ifstream file("/proc/net/arp");
    const Rows neighbours = qor::ParseProcNetArp({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
    std::vector<std::string> asked = {"not an address", "127.0.0.1"};
    for (const auto &[ip, mac] : neighbours) asked.push_back(ip);
    const auto viaCommand = LANInfo::GetMACAddressesSYS(asked);
    const auto viaTable = LANInfo::GetMACAddressesIPH(asked);
    EXPECT_EQ(viaCommand.count("not an address") + viaTable.count("not an address"), 0u);
    EXPECT_EQ(viaCommand.count("127.0.0.1") + viaTable.count("127.0.0.1"), 0u);
    for (const auto &[ip, mac] : neighbours) {
        EXPECT_EQ(viaTable.at(ip), mac);
        // The listing is taken later than the table; an entry may have aged out.
        if (viaCommand.count(ip)) {
            EXPECT_EQ(viaCommand.at(ip), mac);
        }
    }
    if (neighbours.empty()) GTEST_SKIP() << "the host has no neighbours to ask about";
}

TEST(LANInfo, NetBiosHelpersReportTheirFailures) {
    struct Case { const char *function, *message; void (*call)(); };
    const Case cases[] = {
        {"LANInfo::NBEnum", "NetBIOS LAN adapter enumeration failed.", [] { _LANA_ENUM lanas{}; LANInfo::NBEnum(lanas); }},
        {"LANInfo::NBReset", "NetBIOS LAN adapter reset failed.", [] { LANInfo::NBReset(0, 20, 30); }},
        {"LANInfo::NBAStat", "NetBIOS LAN adapter retrieve status failed.",
         [] { _ASTAT_ status{}; LANInfo::NBAStat(0, status, "*"); }},
    };
    for (const Case &c : cases) {
        try {
            c.call();
            ADD_FAILURE() << c.function << " did not throw";
        } catch (const LANInfoException &e) {
            EXPECT_EQ(e.function, c.function);
            EXPECT_EQ(e.message, c.message);
            EXPECT_EQ(e.errorCode, NRC_OPENERR);
        }
    }
    _ASTAT_ status{};
    const unsigned char mac[6] = {0x00, 0x0c, 0x29, 0xab, 0xcd, 0xef};
    std::memcpy(status.adapt.adapter_address, mac, 6);
    std::memcpy(status.NameBuff[0].name, "LABPC01        \x20", 16);
    EXPECT_EQ(LANInfo::ParseMacFromAStat(status), "00-0C-29-AB-CD-EF");
    EXPECT_EQ(LANInfo::ParseAdapterNameFromAStat(status), "LABPC01");
}

}  // namespace
