// The host's managed objects as property bags, read from procfs, sysfs, the
// DMI tables and the OS release file: what CSysInfo queries the way it once
// queried WMI. Each class gives every property of its record, a property the
// host does not expose being null (no value).
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qor::hostinfo {

using PropertyValue = std::optional<std::string>;
using HostObject = std::map<std::string, PropertyValue>;

// Every object of a class ("Win32_Processor", "Win32_PhysicalMemory",
// "Win32_DiskDrive", "Win32_BIOS", "Win32_MotherboardDevice",
// "Win32_NetworkAdapter", "Win32_VideoController", "Win32_OperatingSystem"),
// reading files below `root` ("" for the running host). Null for an unknown
// class; an empty list when the host has no such object.
std::optional<std::vector<HostObject>> QueryHostClass(const std::string &className,
                                                      const std::string &root);

// The providers behind QueryHostClass.
std::vector<HostObject> ReadProcessors(const std::string &root);
std::vector<HostObject> ReadMemoryModules(const std::string &root);
std::vector<HostObject> ReadDiskDrives(const std::string &root);
std::vector<HostObject> ReadBios(const std::string &root);
std::vector<HostObject> ReadMotherboard(const std::string &root);
std::vector<HostObject> ReadNetworkAdapters(const std::string &root);
std::vector<HostObject> ReadVideoControllers(const std::string &root);
std::vector<HostObject> ReadOperatingSystem(const std::string &root);

// File helpers shared by the providers; every path is taken below `root`.
// The file's text with trailing blanks and newlines removed, or null when it
// cannot be read.
PropertyValue ReadHostText(const std::string &root, const std::string &path);
// The same, but null also for an empty text.
PropertyValue ReadHostValue(const std::string &root, const std::string &path);
// The names in a folder, sorted; empty when it cannot be read.
std::vector<std::string> ListHostFolder(const std::string &root, const std::string &path);
bool HostPathExists(const std::string &root, const std::string &path);
// The last part of a symbolic link's target ("e1000e" for a driver link), or null.
PropertyValue HostLinkName(const std::string &root, const std::string &path);
// The machine's name, as the kernel knows it.
PropertyValue HostName(const std::string &root);
// Leading and trailing blanks removed.
std::string TrimmedText(const std::string &text);

}  // namespace qor::hostinfo
