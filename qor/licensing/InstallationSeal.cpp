#include "qor/licensing/InstallationSeal.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <cctype>
#include <cstdint>

#include "qor/host/SysInfo.h"

namespace qor {
namespace {

constexpr unsigned char kRecordFormat = 1;
constexpr std::size_t kTimesSize = 17;  // format and two times
constexpr std::size_t kSealSize = 32;
static_assert(kTimesSize + kSealSize == kInstallationRecordSize);
constexpr char kSealLabel[] = "Qor installation seal 1:";
// 9999-12-31 23:59:59 UTC: times beyond are no clock's, and would overflow
// the arithmetic on them.
constexpr std::time_t kLatestTime = 253402300799;

// The machine's identity as the inventory reports it (the OS's machine id),
// read once. Without one the seal still shows edits, but not copies.
const std::string &MachineIdentity() {
    static const std::string identity = [] {
        CSysInfo info;
        CSysInfo::OS os;
        return info.GetInfo(os, 0) ? os.SerialNumber : std::string();
    }();
    return identity;
}

void PutTime(std::string &out, std::time_t time) {
    const auto value = static_cast<std::uint64_t>(static_cast<std::int64_t>(time));
    for (int shift = 56; shift >= 0; shift -= 8) out += static_cast<char>((value >> shift) & 0xFF);
}

std::time_t GetTime(const std::string &in, std::size_t at) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < 8; ++i) value = (value << 8) | static_cast<unsigned char>(in[at + i]);
    return static_cast<std::time_t>(static_cast<std::int64_t>(value));
}

// Registry names ignore case, so the place is sealed in one case.
std::string LowerCase(std::string text) {
    for (char &c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

bool Seal(const std::string &place, const std::string &times, unsigned char *seal) {
    const std::string key = kSealLabel + MachineIdentity();
    const std::string message = times + LowerCase(place);
    std::size_t length = 0;
    return EVP_Q_mac(nullptr, "HMAC", nullptr, "SHA256", nullptr, key.data(), key.size(),
                     reinterpret_cast<const unsigned char *>(message.data()), message.size(), seal,
                     kSealSize, &length) != nullptr &&
           length == kSealSize;
}

}  // namespace

std::string SealInstallationRecord(const std::string &place, std::time_t firstRun, std::time_t lastSeen) {
    std::string record(1, static_cast<char>(kRecordFormat));
    PutTime(record, firstRun);
    PutTime(record, lastSeen);
    unsigned char seal[kSealSize];
    if (!Seal(place, record, seal)) return {};
    record.append(reinterpret_cast<const char *>(seal), kSealSize);
    return record;
}

bool OpenInstallationRecord(const std::string &place, const std::string &record, std::time_t &firstRun,
                            std::time_t &lastSeen) {
    if (record.size() != kInstallationRecordSize || static_cast<unsigned char>(record[0]) != kRecordFormat)
        return false;
    unsigned char seal[kSealSize];
    if (!Seal(place, record.substr(0, kTimesSize), seal) ||
        CRYPTO_memcmp(seal, record.data() + kTimesSize, kSealSize) != 0)
        return false;
    const std::time_t first = GetTime(record, 1), last = GetTime(record, 9);
    // Only a forger could seal a first run after the last one seen, or times
    // outside the calendar.
    if (first < 0 || first > last || last > kLatestTime) return false;
    firstRun = first;
    lastSeen = last;
    return true;
}

}  // namespace qor
