// The properties of each CSysInfo record in the order they are read, with
// the member each fills: the one table both the reader and anything that
// lists the records (the qor command line) walk.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "qor/host/SysInfo.h"

namespace qor::hostinfo {

template <class Record>
struct SysInfoField {
    const char *name;
    std::string Record::*text = nullptr;        // set for a text property
    std::int64_t Record::*number = nullptr;     // set for a number property
};

template <class Record>
constexpr SysInfoField<Record> Text(const char *name, std::string Record::*member) {
    return {name, member, nullptr};
}
template <class Record>
constexpr SysInfoField<Record> Number(const char *name, std::int64_t Record::*member) {
    return {name, nullptr, member};
}

template <class Record>
struct SysInfoClass;

template <>
struct SysInfoClass<CSysInfo::Processor> {
    using R = CSysInfo::Processor;
    static constexpr const char *className = "Win32_Processor";
    static constexpr const char *title = "Processor";
    static constexpr std::array fields = {
        Text("Name", &R::Name), Text("Description", &R::Description),
        Text("Manufacturer", &R::Manufacturer), Text("DeviceID", &R::DeviceID),
        Text("ProcessorID", &R::ProcessorID), Text("Version", &R::Version),
        Text("Caption", &R::Caption), Number("MaxClockSpeed", &R::MaxClockSpeed),
    };
};

template <>
struct SysInfoClass<CSysInfo::RAM> {
    using R = CSysInfo::RAM;
    static constexpr const char *className = "Win32_PhysicalMemory";
    static constexpr const char *title = "RAM";
    static constexpr std::array fields = {
        Text("Name", &R::Name), Text("Description", &R::Description),
        Text("Manufacturer", &R::Manufacturer), Text("SerialNumber", &R::SerialNumber),
        Text("Version", &R::Version), Text("Model", &R::Model), Number("Capacity", &R::Capacity),
    };
};

template <>
struct SysInfoClass<CSysInfo::DiskDrive> {
    using R = CSysInfo::DiskDrive;
    static constexpr const char *className = "Win32_DiskDrive";
    static constexpr const char *title = "DiskDrive";
    static constexpr std::array fields = {
        Text("Name", &R::Name), Text("Description", &R::Description),
        Text("Manufacturer", &R::Manufacturer), Text("DeviceID", &R::DeviceID),
        Text("MediaType", &R::MediaType), Text("Model", &R::Model),
        Text("SystemName", &R::SystemName), Text("InterfaceType", &R::InterfaceType),
        Number("Size", &R::Size),
    };
};

template <>
struct SysInfoClass<CSysInfo::BIOS> {
    using R = CSysInfo::BIOS;
    static constexpr const char *className = "Win32_BIOS";
    static constexpr const char *title = "BIOS";
    static constexpr std::array fields = {
        Text("Name", &R::Name), Text("Description", &R::Description),
        Text("Manufacturer", &R::Manufacturer), Text("Caption", &R::Caption),
        Text("BuildNumber", &R::BuildNumber), Text("CurrentLanguage", &R::CurrentLanguage),
        Text("IdentificationCode", &R::IdentificationCode),
        Text("SMBIOSBIOSVersion", &R::SMBIOSBIOSVersion), Text("Version", &R::Version),
    };
};

template <>
struct SysInfoClass<CSysInfo::Motherboard> {
    using R = CSysInfo::Motherboard;
    static constexpr const char *className = "Win32_MotherboardDevice";
    static constexpr const char *title = "Motherboard";
    static constexpr std::array fields = {
        Text("Name", &R::Name), Text("Description", &R::Description), Text("Caption", &R::Caption),
        Text("DeviceID", &R::DeviceID), Text("PrimaryBusType", &R::PrimaryBusType),
        Text("RevisionNumber", &R::RevisionNumber), Text("SecondaryBusType", &R::SecondaryBusType),
        Text("SystemName", &R::SystemName),
    };
};

template <>
struct SysInfoClass<CSysInfo::NIC> {
    using R = CSysInfo::NIC;
    static constexpr const char *className = "Win32_NetworkAdapter";
    static constexpr const char *title = "NIC";
    static constexpr std::array fields = {
        Text("AdapterType", &R::AdapterType), Text("MACAddress", &R::MACAddress),
        Text("DeviceID", &R::DeviceID), Text("Name", &R::Name), Text("Description", &R::Description),
        Text("ProductName", &R::ProductName), Text("ServiceName", &R::ServiceName),
        Text("SystemName", &R::SystemName),
    };
};

template <>
struct SysInfoClass<CSysInfo::VideoCard> {
    using R = CSysInfo::VideoCard;
    static constexpr const char *className = "Win32_VideoController";
    static constexpr const char *title = "VideoCard";
    static constexpr std::array fields = {
        Text("Name", &R::Name), Text("AdapterCompatibility", &R::AdapterCompatibility),
        Text("AdapterDACType", &R::AdapterDACType), Text("Caption", &R::Caption),
        Text("Description", &R::Description), Text("DeviceID", &R::DeviceID),
        Text("DriverVersion", &R::DriverVersion),
        Text("InstalledDisplayDrivers", &R::InstalledDisplayDrivers),
        Text("SystemName", &R::SystemName), Text("VideoModeDescription", &R::VideoModeDescription),
        Text("VideoProcessor", &R::VideoProcessor),
        Text("CurrentNumberOfColors", &R::CurrentNumberOfColors),
        Number("CurrentBitsPerPixel", &R::CurrentBitsPerPixel),
        Number("CurrentHorizontalResolution", &R::CurrentHorizontalResolution),
        Number("CurrentRefreshRate", &R::CurrentRefreshRate),
        Number("CurrentScanMode", &R::CurrentScanMode),
        Number("CurrentVerticalResolution", &R::CurrentVerticalResolution),
        Number("MaxRefreshRate", &R::MaxRefreshRate), Number("MinRefreshRate", &R::MinRefreshRate),
        Number("NumberOfColorPlanes", &R::NumberOfColorPlanes),
        Number("VideoArchitecture", &R::VideoArchitecture),
        Number("VideoMemoryType", &R::VideoMemoryType), Number("VideoMode", &R::VideoMode),
    };
};

template <>
struct SysInfoClass<CSysInfo::OS> {
    using R = CSysInfo::OS;
    static constexpr const char *className = "Win32_OperatingSystem";
    static constexpr const char *title = "OS";
    static constexpr std::array fields = {
        Text("BootDevice", &R::BootDevice), Text("BuildNumber", &R::BuildNumber),
        Text("BuildType", &R::BuildType), Text("Caption", &R::Caption),
        Text("CountryCode", &R::CountryCode), Text("CSDVersion", &R::CSDVersion),
        Text("CSName", &R::CSName), Text("Description", &R::Description),
        Text("Manufacturer", &R::Manufacturer), Text("Locale", &R::Locale),
        Text("Organization", &R::Organization), Text("OtherTypeDescription", &R::OtherTypeDescription),
        Text("PlusProductID", &R::PlusProductID), Text("PlusVersionNumber", &R::PlusVersionNumber),
        Text("RegisteredUser", &R::RegisteredUser), Text("SerialNumber", &R::SerialNumber),
        Text("SystemDevice", &R::SystemDevice), Text("SystemDirectory", &R::SystemDirectory),
        Text("SystemDrive", &R::SystemDrive), Text("Version", &R::Version),
        Text("WindowsDirectory", &R::WindowsDirectory),
        Number("FreePhysicalMemory", &R::FreePhysicalMemory),
        Number("CurrentTimeZone", &R::CurrentTimeZone), Number("EncryptionLevel", &R::EncryptionLevel),
        Number("FreeSpaceInPagingFiles", &R::FreeSpaceInPagingFiles),
        Number("FreeVirtualMemory", &R::FreeVirtualMemory),
        Number("MaxNumberOfProcesses", &R::MaxNumberOfProcesses),
        Number("MaxProcessMemorySize", &R::MaxProcessMemorySize),
        Number("NumberOfLicensedUsers", &R::NumberOfLicensedUsers),
        Number("NumberOfProcesses", &R::NumberOfProcesses), Number("NumberOfUsers", &R::NumberOfUsers),
        Number("OSLanguage", &R::OSLanguage), Number("OSProductSuite", &R::OSProductSuite),
        Number("OSType", &R::OSType), Number("ProductType", &R::ProductType),
        Number("QuantumLength", &R::QuantumLength), Number("QuantumType", &R::QuantumType),
        Number("ServicePackMajorVersion", &R::ServicePackMajorVersion),
        Number("ServicePackMinorVersion", &R::ServicePackMinorVersion),
        Number("SizeStoredInPagingFiles", &R::SizeStoredInPagingFiles),
        Number("TotalSwapSpaceSize", &R::TotalSwapSpaceSize),
        Number("TotalVirtualMemorySize", &R::TotalVirtualMemorySize),
        Number("TotalVisibleMemorySize", &R::TotalVisibleMemorySize),
    };
};

}  // namespace qor::hostinfo
