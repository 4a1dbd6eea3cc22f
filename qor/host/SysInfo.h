// CSysInfo: what the machine is made of (processors, memory modules, disks,
// BIOS, motherboard, network adapters, video controllers, operating system)
// as plain records, for an application to show or log.
//
// The facts come from procfs, sysfs, the DMI tables and /etc/os-release. A
// fact the host does not expose reads as the empty text or 0. Memory modules
// need the DMI table (/sys/firmware/dmi/tables/DMI), which is root's to read
// on most systems; BIOS facts need /sys/class/dmi/id. Without them those
// queries find no object: the vector forms give an empty vector, the
// one-object forms leave the record as it was, and both return true.
//
// GetInfo(vector<NIC> &) keeps working wired adapters only: an adapter whose
// AdapterType lacks "Ethernet" (wireless, loopback, tunnels), that has no MAC,
// that is not up (Availability 3) or has no link (NetConnectionStatus 2) is
// skipped without failure.
//
// Nothing throws: false is the only failure. The int argument of GetInfo is
// handed to Connect and changes nothing. An object belongs to one thread at a
// time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "qor/host/HostObjects.h"

class CSysInfo {
public:
    struct Processor {
        std::string Name, Description, Manufacturer, DeviceID, ProcessorID, Version, Caption;
        std::int64_t MaxClockSpeed = 0;  // MHz
    };
    struct RAM {
        std::string Name, Description, Manufacturer, SerialNumber, Version, Model;
        std::int64_t Capacity = 0;  // bytes
    };
    struct DiskDrive {
        std::string Name, Description, Manufacturer, DeviceID, MediaType, Model, SystemName, InterfaceType;
        std::int64_t Size = 0;  // bytes
    };
    struct BIOS {
        std::string Name, Description, Manufacturer, Caption, BuildNumber, CurrentLanguage,
            IdentificationCode, SMBIOSBIOSVersion, Version;
    };
    struct Motherboard {
        std::string Name, Description, Caption, DeviceID, PrimaryBusType, RevisionNumber,
            SecondaryBusType, SystemName;
    };
    struct NIC {
        std::string AdapterType, MACAddress, DeviceID, Name, Description, ProductName, ServiceName,
            SystemName;
    };
    struct VideoCard {
        std::string Name, AdapterCompatibility, AdapterDACType, Caption, Description, DeviceID,
            DriverVersion, InstalledDisplayDrivers, SystemName, VideoModeDescription, VideoProcessor,
            CurrentNumberOfColors;
        std::int64_t CurrentBitsPerPixel = 0, CurrentHorizontalResolution = 0, CurrentRefreshRate = 0,
                     CurrentScanMode = 0, CurrentVerticalResolution = 0, MaxRefreshRate = 0,
                     MinRefreshRate = 0, NumberOfColorPlanes = 0, VideoArchitecture = 0,
                     VideoMemoryType = 0, VideoMode = 0;
    };
    struct OS {
        std::string BootDevice, BuildNumber, BuildType, Caption, CountryCode, CSDVersion, CSName,
            Description, Manufacturer, Locale, Organization, OtherTypeDescription, PlusProductID,
            PlusVersionNumber, RegisteredUser, SerialNumber, SystemDevice, SystemDirectory,
            SystemDrive, Version, WindowsDirectory;
        std::int64_t FreePhysicalMemory = 0, CurrentTimeZone = 0, EncryptionLevel = 0,
                     FreeSpaceInPagingFiles = 0, FreeVirtualMemory = 0, MaxNumberOfProcesses = 0,
                     MaxProcessMemorySize = 0, NumberOfLicensedUsers = 0, NumberOfProcesses = 0,
                     NumberOfUsers = 0, OSLanguage = 0, OSProductSuite = 0, OSType = 0, ProductType = 0,
                     QuantumLength = 0, QuantumType = 0, ServicePackMajorVersion = 0,
                     ServicePackMinorVersion = 0, SizeStoredInPagingFiles = 0, TotalSwapSpaceSize = 0,
                     TotalVirtualMemorySize = 0, TotalVisibleMemorySize = 0;  // memory in kilobytes
    };

    CSysInfo() = default;
    // Reads the host's files below `root` instead of "/": a mounted system
    // image, or a prepared tree.
    explicit CSysInfo(std::string root) : root_(std::move(root)) {}
    virtual ~CSysInfo() { Disconnect(); }
    CSysInfo(const CSysInfo &) = delete;
    CSysInfo &operator=(const CSysInfo &) = delete;

    bool GetInfo(BIOS &bios, int flags);
    bool GetInfo(Motherboard &board, int flags);
    bool GetInfo(OS &os, int flags);
    bool GetInfo(std::vector<Processor> &processors, int flags);
    bool GetInfo(std::vector<RAM> &modules, int flags);
    bool GetInfo(std::vector<DiskDrive> &disks, int flags);
    bool GetInfo(std::vector<NIC> &adapters, int flags);
    bool GetInfo(std::vector<VideoCard> &cards, int flags);

protected:
    // Queries every object of a class ("Win32_Processor", ...); false for a
    // class the host cannot answer.
    bool Connect(const std::string &className, int flags);
    // Moves to the next object; false at the end.
    bool NextObject();
    // A property of the current object: false when it has no such property;
    // a null property reads as "" (text) or 0 (number). A number property is
    // kept as decimal text and parsed; a text that is no number is false.
    bool FindVal(const std::string &property, std::string &value);
    bool FindVal(const std::string &property, std::int64_t &value);
    void Disconnect();

private:
    template <class Record>
    bool ReadRecord(Record &record);
    template <class Record>
    bool ReadOne(Record &record, const char *className, int flags);
    template <class Record>
    bool ReadAll(std::vector<Record> &records, const char *className, int flags);

    std::string root_;
    std::vector<qor::hostinfo::HostObject> objects_;
    std::size_t next_ = 0;
    std::optional<qor::hostinfo::HostObject> current_;
    bool connected_ = false;
};
