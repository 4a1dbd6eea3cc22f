#include "qor/host/SysInfo.h"

#include <cerrno>
#include <cstdlib>

#include "qor/host/SysInfoFields.h"

namespace {

// The filter's values: an adapter that is running and connected.
constexpr std::int64_t kAvailabilityRunning = 3;
constexpr std::int64_t kStatusConnected = 2;

}  // namespace

bool CSysInfo::Connect(const std::string &className, int flags) {
    if (connected_) Disconnect();
    auto objects = qor::hostinfo::QueryHostClass(className, root_);
    if (!objects) return false;
    objects_ = std::move(*objects);
    next_ = 0;
    connected_ = true;
    return true;
}

bool CSysInfo::NextObject() {
    current_.reset();
    if (!connected_ || next_ >= objects_.size()) return false;
    current_ = std::move(objects_[next_++]);
    return true;
}

void CSysInfo::Disconnect() {
    current_.reset();
    objects_.clear();
    next_ = 0;
    connected_ = false;
}

bool CSysInfo::FindVal(const std::string &property, std::string &value) {
    if (!current_) return false;
    auto it = current_->find(property);
    if (it == current_->end()) return false;
    value = it->second.value_or(std::string());
    return true;
}

bool CSysInfo::FindVal(const std::string &property, std::int64_t &value) {
    value = 0;
    if (!current_) return false;
    auto it = current_->find(property);
    if (it == current_->end()) return false;
    if (!it->second) return true;
    const std::string &text = *it->second;
    char *end = nullptr;
    errno = 0;
    long long number = std::strtoll(text.c_str(), &end, 10);
    // Values beyond the signed range (an unsigned 64-bit count) wrap as the
    // conversion of an unsigned WMI value does.
    if (errno == ERANGE && !text.empty() && text[0] != '-') {
        errno = 0;
        number = static_cast<long long>(std::strtoull(text.c_str(), &end, 10));
    }
    if (text.empty() || end == text.c_str() || *end != '\0' || errno == ERANGE) return false;
    value = number;
    return true;
}

template <class Record>
bool CSysInfo::ReadRecord(Record &record) {
    for (const auto &field : qor::hostinfo::SysInfoClass<Record>::fields) {
        bool read = field.text ? FindVal(field.name, record.*field.text) : FindVal(field.name, record.*field.number);
        if (!read) return false;
    }
    return true;
}

template <class Record>
bool CSysInfo::ReadOne(Record &record, const char *className, int flags) {
    if (!Connect(className, flags)) return false;
    bool ok = true;
    if (NextObject()) ok = ReadRecord(record);
    Disconnect();
    return ok;
}

template <class Record>
bool CSysInfo::ReadAll(std::vector<Record> &records, const char *className, int flags) {
    if (!Connect(className, flags)) return false;
    bool ok = true;
    while (ok && NextObject()) {
        Record record;
        ok = ReadRecord(record);
        if (ok) records.push_back(std::move(record));
    }
    Disconnect();
    return ok;
}

bool CSysInfo::GetInfo(BIOS &bios, int flags) { return ReadOne(bios, "Win32_BIOS", flags); }

bool CSysInfo::GetInfo(Motherboard &board, int flags) {
    return ReadOne(board, "Win32_MotherboardDevice", flags);
}

bool CSysInfo::GetInfo(OS &os, int flags) { return ReadOne(os, "Win32_OperatingSystem", flags); }

bool CSysInfo::GetInfo(std::vector<Processor> &processors, int flags) {
    return ReadAll(processors, "Win32_Processor", flags);
}

bool CSysInfo::GetInfo(std::vector<RAM> &modules, int flags) {
    return ReadAll(modules, "Win32_PhysicalMemory", flags);
}

bool CSysInfo::GetInfo(std::vector<DiskDrive> &disks, int flags) {
    return ReadAll(disks, "Win32_DiskDrive", flags);
}

bool CSysInfo::GetInfo(std::vector<VideoCard> &cards, int flags) {
    return ReadAll(cards, "Win32_VideoController", flags);
}

bool CSysInfo::GetInfo(std::vector<NIC> &adapters, int flags) {
    if (!Connect("Win32_NetworkAdapter", flags)) return false;
    bool ok = true;
    while (ok && NextObject()) {
        NIC nic;
        std::int64_t availability = 0, status = 0;
        // DeviceID is read a second time right after the first, and that
        // second read is the one kept; the table's read does the first.
        ok = ReadRecord(nic) && FindVal("DeviceID", nic.DeviceID) &&
             FindVal("Availability", availability) && FindVal("NetConnectionStatus", status);
        if (!ok) break;
        bool wiredAndWorking = nic.AdapterType.find("Ethernet") != std::string::npos &&
                               !nic.MACAddress.empty() && availability == kAvailabilityRunning &&
                               status == kStatusConnected;
        if (wiredAndWorking) adapters.push_back(std::move(nic));
    }
    Disconnect();
    return ok;
}
