// The sealed bytes of an installation record; the layout and what the seal
// is worth are told in InstallationTime.h.
#pragma once

#include <ctime>
#include <string>

namespace qor {

constexpr std::size_t kInstallationRecordSize = 49;

// The record of the two times, sealed for `place` on this computer.
std::string SealInstallationRecord(const std::string &place, std::time_t firstRun, std::time_t lastSeen);

// Reads a record back: false, leaving the times alone, unless it has the
// record's size and format and its seal holds for `place` on this computer.
bool OpenInstallationRecord(const std::string &place, const std::string &record, std::time_t &firstRun,
                            std::time_t &lastSeen);

}  // namespace qor
