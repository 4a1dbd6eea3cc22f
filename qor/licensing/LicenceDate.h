// Calendar days as licences count them: whole days since 1970-01-01 in UTC,
// so a key means the same date in every time zone.
#pragma once

#include <ctime>
#include <string>

namespace qor {

// The day `time` falls on, in UTC.
long LicenceDayOf(std::time_t time);
// Today, by the system clock.
long LicenceToday();

// Reads "YYYY-MM-DD" (four, two and two digits) naming a real date of the
// years 1970 to 9999; false, leaving `day` alone, for anything else.
bool ParseLicenceDate(const std::string &text, long &day);
// "YYYY-MM-DD" of a day.
std::string FormatLicenceDate(long day);
// "YYYY-MM-DD HH:MM:SS UTC" of a time.
std::string FormatLicenceTime(std::time_t time);

}  // namespace qor
