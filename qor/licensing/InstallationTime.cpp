#include "qor/licensing/InstallationTime.h"

#include <iterator>

#include "qor/licensing/InstallationSeal.h"
#include "qor/settings/RegistryStore.h"

namespace reg = qor::registry;

namespace {

constexpr DWORD kBinaryType = 3;

constexpr const char *kRecordStatusTexts[] = {
    "This program has no installation record yet.",
    "The installation record is intact.",
    "This is the program's first run here; its installation time was recorded.",
    "The installation record was changed or copied from elsewhere.",
    "The computer's clock is behind the last time this program ran.",
    "The installation record could not be read or written.",
};
static_assert(std::size(kRecordStatusTexts) == CInstallationTime::StoreFailed + 1);

}  // namespace

const char *CInstallationTime::StatusText(Status status) {
    const auto index = static_cast<std::size_t>(status);
    return index < std::size(kRecordStatusTexts) ? kRecordStatusTexts[index] : "";
}

CInstallationTime::CInstallationTime(std::string keyPath, std::string valueName, HKEY hive)
    : keyPath_(std::move(keyPath)), valueName_(std::move(valueName)), hive_(hive) {}

std::string CInstallationTime::GetPlace() const {
    std::string key = keyPath_;
    while (!key.empty() && key.back() == '\\') key.pop_back();
    return qor::RegistryHiveName(hive_) + "\\" + key + "\\" + valueName_;
}

bool CInstallationTime::IsIntact() const {
    return status_ == Recorded || status_ == FirstRun || status_ == ClockTurnedBack;
}

CInstallationTime::Status CInstallationTime::Load() {
    firstRun_ = lastSeen_ = 0;
    DWORD type = 0;
    std::string record;
    // Only a value that is surely absent makes a first run: a store that
    // fails to answer must not restart a trial.
    const LONG result = reg::GetKeyValue(hive_, keyPath_.c_str(), valueName_.c_str(), &type, &record);
    if (result == reg::kFileNotFound) return NotRecorded;
    if (result != reg::kSuccess) return StoreFailed;
    std::time_t first = 0, last = 0;
    if (type != kBinaryType || !qor::OpenInstallationRecord(GetPlace(), record, first, last)) return Tampered;
    firstRun_ = first;
    lastSeen_ = last;
    return Recorded;
}

bool CInstallationTime::Store(std::time_t firstRun, std::time_t lastSeen) {
    const std::string record = qor::SealInstallationRecord(GetPlace(), firstRun, lastSeen);
    return !record.empty() &&
           reg::SetKeyValue(hive_, keyPath_.c_str(), valueName_.c_str(), kBinaryType, record.data(),
                            static_cast<DWORD>(record.size())) == reg::kSuccess;
}

CInstallationTime::Status CInstallationTime::Read() { return status_ = Load(); }

CInstallationTime::Status CInstallationTime::Check() { return Check(std::time(nullptr)); }

CInstallationTime::Status CInstallationTime::Check(std::time_t now) {
    status_ = Load();
    if (status_ == NotRecorded) {
        if (!Store(now, now)) return status_ = StoreFailed;
        firstRun_ = lastSeen_ = now;
        return status_ = FirstRun;
    }
    if (status_ != Recorded) return status_;
    if (now < lastSeen_ - tolerance_) return status_ = ClockTurnedBack;
    // Within the tolerance the clock may step back a little; last-seen only
    // ever moves forward.
    if (now > lastSeen_) {
        if (!Store(firstRun_, now)) return status_ = StoreFailed;
        lastSeen_ = now;
    }
    return status_;
}

long CInstallationTime::DaysSinceInstallation() const { return DaysSinceInstallation(std::time(nullptr)); }

long CInstallationTime::DaysSinceInstallation(std::time_t now) const {
    if (!IsIntact()) return -1;
    const std::time_t latest = now > lastSeen_ ? now : lastSeen_;
    return static_cast<long>((latest - firstRun_) / (24 * 60 * 60));
}

bool CInstallationTime::IsTrialExpired(long trialDays) const {
    return IsTrialExpired(trialDays, std::time(nullptr));
}

bool CInstallationTime::IsTrialExpired(long trialDays, std::time_t now) const {
    return !IsIntact() || DaysSinceInstallation(now) >= trialDays;
}
