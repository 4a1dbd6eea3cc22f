#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "qor/host/DmiTable.h"
#include "qor/host/SysInfo.h"

namespace {

namespace fs = std::filesystem;

// A host tree in a temporary folder: the files CSysInfo reads, written by
// the test, so each filter and conversion meets known input.
class FakeHost {
public:
    FakeHost() {
        root_ = fs::temp_directory_path() / ("qor-host-" + std::to_string(::getpid()) + "-" + std::to_string(counter_++));
        fs::create_directories(root_);
        Write("/proc/sys/kernel/hostname", "labpc01\n");
    }
    ~FakeHost() { fs::remove_all(root_); }

    void Write(const std::string &path, const std::string &text) { std::ofstream(At(path), std::ios::binary) << text; }
    void Folder(const std::string &path) { fs::create_directories(At(path)); }
    void Link(const std::string &path, const std::string &target) { fs::create_symlink(target, At(path)); }
    void Adapter(const std::string &name, int index, int type, const char *flags, const char *operstate,
                 const char *address) {
        const std::pair<const char *, std::string> files[] = {
            {"ifindex", std::to_string(index)}, {"type", std::to_string(type)}, {"flags", flags},
            {"operstate", operstate}, {"carrier", "1"}, {"address", address}};
        for (const auto &[file, text] : files) Write("/sys/class/net/" + name + "/" + file, text + "\n");
    }
    std::string root() const { return root_.string(); }

private:
    // The place of a host path in the tree, its parent folders made.
    fs::path At(const std::string &path) const {
        fs::create_directories((root_ / path.substr(1)).parent_path());
        return root_ / path.substr(1);
    }

    static inline int counter_ = 0;
    fs::path root_;
};

// Opens the protected steps to the tests.
class OpenSysInfo : public CSysInfo {
public:
    using CSysInfo::CSysInfo;
    using CSysInfo::Connect;
    using CSysInfo::FindVal;
    using CSysInfo::NextObject;
};

// Every record of one kind the host tree gives.
template <class Record>
std::vector<Record> List(const FakeHost &host) {
    CSysInfo info(host.root());
    std::vector<Record> records;
    EXPECT_TRUE(info.GetInfo(records, 0));
    return records;
}

TEST(SysInfo, OnlyWorkingWiredAdaptersAreKept) {
    FakeHost host;
    host.Adapter("lo", 1, 772, "0x9", "unknown", "00:00:00:00:00:00");
    host.Adapter("eth0", 2, 1, "0x1003", "up", "02:fc:00:00:00:01");
    host.Link("/sys/class/net/eth0/device/driver", "../../../bus/pci/drivers/e1000e");
    host.Adapter("wlan0", 3, 1, "0x1003", "up", "02:fc:00:00:00:03");
    host.Folder("/sys/class/net/wlan0/wireless");
    host.Adapter("eth1", 4, 1, "0x1002", "down", "02:fc:00:00:00:04");     // not up
    host.Adapter("eth2", 5, 1, "0x1003", "down", "02:fc:00:00:00:05");     // no link
    host.Adapter("eth3", 6, 1, "0x1003", "up", "00:00:00:00:00:00");       // no MAC
    host.Adapter("tun0", 7, 65534, "0x1003", "unknown", "");               // not Ethernet
    host.Adapter("veth9", 8, 1, "0x1003", "unknown", "02:fc:00:00:00:08"); // carrier says linked
    const auto adapters = List<CSysInfo::NIC>(host);
    ASSERT_EQ(adapters.size(), 2u);
    const CSysInfo::NIC &eth0 = adapters[0];
    EXPECT_EQ(eth0.Name, "eth0");
    EXPECT_EQ(eth0.AdapterType, "Ethernet 802.3");
    EXPECT_EQ(eth0.MACAddress, "02:FC:00:00:00:01");
    EXPECT_EQ(eth0.DeviceID, "2");
    EXPECT_EQ(eth0.ServiceName, "e1000e");
    EXPECT_EQ(eth0.SystemName, "labpc01");
    EXPECT_EQ(adapters[1].Name, "veth9");
    EXPECT_EQ(adapters[1].ServiceName, "");
}

TEST(SysInfo, MissingFactsLeaveRecordsAsTheyWere) {
    FakeHost host;  // no DMI folders, no cpuinfo, no disks, no adapter up
    host.Adapter("eth0", 2, 1, "0x1002", "down", "02:fc:00:00:00:01");
    CSysInfo info(host.root());
    CSysInfo::BIOS bios;
    bios.Name = "kept";
    EXPECT_TRUE(info.GetInfo(bios, 0));
    EXPECT_EQ(bios.Name, "kept");
    EXPECT_TRUE(List<CSysInfo::NIC>(host).empty());
    EXPECT_TRUE(List<CSysInfo::RAM>(host).empty());
    EXPECT_TRUE(List<CSysInfo::Processor>(host).empty());
    EXPECT_TRUE(List<CSysInfo::DiskDrive>(host).empty());
    EXPECT_TRUE(List<CSysInfo::VideoCard>(host).empty());
    // The motherboard always exists; what is not known is empty.
    CSysInfo::Motherboard board;
    EXPECT_TRUE(info.GetInfo(board, 0));
    EXPECT_EQ(board.DeviceID, "Motherboard");
    EXPECT_EQ(board.RevisionNumber, "");
    EXPECT_EQ(board.SystemName, "labpc01");
}

TEST(SysInfo, ProcessorsArePackages) {
    FakeHost host;
    std::string cpuinfo;
    for (int cpu = 0; cpu < 4; ++cpu)
        cpuinfo += "processor\t: " + std::to_string(cpu) +
                   "\nvendor_id\t: GenuineIntel\ncpu family\t: 6\nmodel\t\t: 85\nmodel name\t: Xeon Test " +
                   std::to_string(cpu / 2) + "\nstepping\t: 7\ncpu MHz\t\t: 2100.400\nphysical id\t: " +
                   std::to_string(cpu / 2) + "\n\n";
    host.Write("/proc/cpuinfo", cpuinfo);
    host.Write("/sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq", "3900000\n");
    const auto processors = List<CSysInfo::Processor>(host);
    ASSERT_EQ(processors.size(), 2u);
    EXPECT_EQ(processors[0].Name, "Xeon Test 0");
    EXPECT_EQ(processors[1].Name, "Xeon Test 1");
    EXPECT_EQ(processors[0].Manufacturer, "GenuineIntel");
    EXPECT_EQ(processors[0].DeviceID, "CPU0");
    EXPECT_EQ(processors[1].DeviceID, "CPU1");
    EXPECT_NE(processors[0].Description.find("Family 6 Model 85 Stepping 7"), std::string::npos);
    EXPECT_EQ(processors[0].Version, "Model 85, Stepping 7");
    EXPECT_EQ(processors[0].MaxClockSpeed, 3900);  // from cpufreq
    EXPECT_EQ(processors[1].MaxClockSpeed, 2100);  // from cpuinfo
}

// Two memory devices, one an empty slot, in an SMBIOS table.
std::string DmiTableWithMemory() {
    auto device = [](std::uint16_t size, bool withStrings) {
        std::string s(0x22, '\0');
        s[0] = 17;
        s[1] = 0x22;
        s[0x0C] = static_cast<char>(size & 0xFF);
        s[0x0D] = static_cast<char>(size >> 8);
        if (withStrings) {
            s[0x10] = 1;    // device locator
            s[0x17] = 2;    // manufacturer
            s[0x18] = 3;    // serial number
            s[0x1A] = 4;    // part number
            static const char kStrings[] = "DIMM 0\0Samsung\0SN1234\0M378A1K43CB2-CTD   \0";
            s += std::string(kStrings, sizeof kStrings);  // the set ends with a second zero
        } else {
            s += std::string("\0\0", 2);
        }
        return s;
    };
    std::string bios(0x12, '\0');
    bios[1] = 0x12;
    bios += std::string("Vendor\0\0", 8);
    std::string end(4, '\0');
    end[0] = 127;
    end[1] = 4;
    end += std::string("\0\0", 2);
    return bios + device(8192, true) + device(0, false) + end;
}

TEST(SysInfo, MemoryModulesComeFromTheDmiTable) {
    FakeHost host;
    host.Write("/sys/firmware/dmi/tables/DMI", DmiTableWithMemory());
    const auto modules = List<CSysInfo::RAM>(host);
    ASSERT_EQ(modules.size(), 1u);
    EXPECT_EQ(modules[0].Capacity, 8192LL << 20);
    EXPECT_EQ(modules[0].Manufacturer, "Samsung");
    EXPECT_EQ(modules[0].SerialNumber, "SN1234");
    EXPECT_EQ(modules[0].Model, "M378A1K43CB2-CTD");
    EXPECT_EQ(modules[0].Version, "");
}

TEST(SysInfo, DamagedDmiTablesGiveFewerStructures) {
    const std::string table = DmiTableWithMemory();
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(table.data());
    EXPECT_EQ(qor::hostinfo::ParseDmiTable({bytes, table.size()}).size(), 4u);
    for (std::size_t size = 0; size < table.size(); ++size) {
        auto structures = qor::hostinfo::ParseDmiTable({bytes, size});
        EXPECT_LE(structures.size(), 4u);
        for (const auto &s : structures) {
            s.String(0x17);
            qor::hostinfo::DmiMemoryDeviceSize(s);
        }
    }
    qor::hostinfo::DmiStructure extended;
    extended.formatted.assign(0x22, 0);
    extended.formatted[0x0C] = 0xFF;
    extended.formatted[0x0D] = 0x7F;  // see the extended size
    extended.formatted[0x1C] = 0x00;
    extended.formatted[0x1D] = 0x00;
    extended.formatted[0x1E] = 0x01;  // 65536 MB
    EXPECT_EQ(qor::hostinfo::DmiMemoryDeviceSize(extended), 65536ULL << 20);
    extended.formatted[0x0C] = 0x00;
    extended.formatted[0x0D] = 0x82;  // 512 KB units
    EXPECT_EQ(qor::hostinfo::DmiMemoryDeviceSize(extended), 512ULL << 10);
}

TEST(SysInfo, DisksOnHardwareOnly) {
    FakeHost host;
    host.Write("/sys/block/sda/size", "1953525168\n");
    host.Write("/sys/block/sda/removable", "0\n");
    host.Write("/sys/block/sda/device/vendor", "ATA     \n");
    host.Write("/sys/block/sda/device/model", "Samsung SSD 870 \n");
    host.Write("/sys/block/loop0/size", "100\n");
    const auto disks = List<CSysInfo::DiskDrive>(host);
    ASSERT_EQ(disks.size(), 1u);
    EXPECT_EQ(disks[0].DeviceID, "/dev/sda");
    EXPECT_EQ(disks[0].Manufacturer, "ATA");
    EXPECT_EQ(disks[0].Model, "Samsung SSD 870");
    EXPECT_EQ(disks[0].InterfaceType, "SCSI");
    EXPECT_EQ(disks[0].MediaType, "Fixed hard disk media");
    EXPECT_EQ(disks[0].Size, 1953525168LL * 512);
}

TEST(SysInfo, PropertyReadsFollowTheNullRules) {
    FakeHost host;
    host.Write("/sys/class/dmi/id/bios_version", "1.0.7\n");
    OpenSysInfo info(host.root());
    ASSERT_FALSE(info.Connect("Win32_NoSuchClass", 0));
    ASSERT_TRUE(info.Connect("Win32_BIOS", 0));
    ASSERT_TRUE(info.NextObject());
    std::string text = "old";
    std::int64_t number = 5;
    EXPECT_TRUE(info.FindVal("Manufacturer", text));  // null
    EXPECT_EQ(text, "");
    EXPECT_TRUE(info.FindVal("Manufacturer", number));
    EXPECT_EQ(number, 0);
    EXPECT_TRUE(info.FindVal("Name", text));
    EXPECT_EQ(text, "1.0.7");
    EXPECT_FALSE(info.FindVal("Name", number));       // not a number
    EXPECT_FALSE(info.FindVal("NoSuchProperty", text));
    EXPECT_FALSE(info.NextObject());
    EXPECT_FALSE(info.FindVal("Name", text));         // no current object
}

TEST(SysInfo, RealHostDescribesItself) {
    CSysInfo info;
    CSysInfo::OS os;
    ASSERT_TRUE(info.GetInfo(os, 0));
    utsname name{};
    ASSERT_EQ(::uname(&name), 0);
    EXPECT_EQ(os.Version, name.release);
    EXPECT_EQ(os.CSName, name.nodename);
    EXPECT_FALSE(os.Caption.empty());
    EXPECT_EQ(os.OSType, 36);
    EXPECT_GT(os.TotalVisibleMemorySize, 0);
    EXPECT_GE(os.NumberOfProcesses, 1);

    std::vector<CSysInfo::Processor> processors;
    ASSERT_TRUE(info.GetInfo(processors, 0));
    ASSERT_FALSE(processors.empty());
    EXPECT_FALSE(processors[0].Name.empty());

    std::vector<CSysInfo::NIC> adapters;
    ASSERT_TRUE(info.GetInfo(adapters, 0));
    for (const auto &nic : adapters) {
        EXPECT_NE(nic.Name, "lo");
        EXPECT_NE(nic.AdapterType.find("Ethernet"), std::string::npos);
        EXPECT_FALSE(nic.MACAddress.empty());
    }
    std::vector<CSysInfo::DiskDrive> disks;
    EXPECT_TRUE(info.GetInfo(disks, 0));
    for (const auto &disk : disks) EXPECT_EQ(disk.DeviceID.find("/dev/loop"), std::string::npos);
}

}  // namespace
