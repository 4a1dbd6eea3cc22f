#include "qor/licensing/LicenceDate.h"

#include <chrono>
#include <cstdio>

namespace qor {
namespace {

using namespace std::chrono;

constexpr long kSecondsPerDay = 86400;

// Floor division, so that times before 1970 fall on the day they belong to.
long FloorDay(std::time_t time) {
    long long days = time / kSecondsPerDay;
    if (time % kSecondsPerDay < 0) --days;
    return static_cast<long>(days);
}

bool ReadDigits(const std::string &text, std::size_t at, std::size_t count, unsigned &value) {
    value = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        if (text[i] < '0' || text[i] > '9') return false;
        value = value * 10 + static_cast<unsigned>(text[i] - '0');
    }
    return true;
}

}  // namespace

long LicenceDayOf(std::time_t time) { return FloorDay(time); }

long LicenceToday() { return FloorDay(std::time(nullptr)); }

bool ParseLicenceDate(const std::string &text, long &day) {
    unsigned y = 0, m = 0, d = 0;
    if (text.size() != 10 || text[4] != '-' || text[7] != '-' || !ReadDigits(text, 0, 4, y) ||
        !ReadDigits(text, 5, 2, m) || !ReadDigits(text, 8, 2, d) || y < 1970)
        return false;
    const year_month_day date{year{static_cast<int>(y)}, month{m}, std::chrono::day{d}};
    if (!date.ok()) return false;
    day = static_cast<long>(sys_days(date).time_since_epoch().count());
    return true;
}

std::string FormatLicenceDate(long day) {
    const year_month_day date{sys_days{days{day}}};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

std::string FormatLicenceTime(std::time_t time) {
    const long day = FloorDay(time);
    const long long second = static_cast<long long>(time) - static_cast<long long>(day) * kSecondsPerDay;
    char text[48];
    std::snprintf(text, sizeof text, "%s %02lld:%02lld:%02lld UTC", FormatLicenceDate(day).c_str(),
                  second / 3600, second / 60 % 60, second % 60);
    return text;
}

}  // namespace qor
