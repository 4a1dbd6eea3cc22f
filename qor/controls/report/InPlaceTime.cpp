#include <ctime>

#include "qor/controls/report/ReportTypes.h"

namespace qor {

std::string FormatInPlaceTime(std::int64_t time, bool showTime) {
    std::time_t seconds = static_cast<std::time_t>(time);
    std::tm local{};
    if (!localtime_r(&seconds, &local)) return {};
    char text[64];
    std::size_t n = std::strftime(text, sizeof text, showTime ? "%Y-%m-%d %H:%M:%S" : "%Y-%m-%d", &local);
    return std::string(text, n);
}

}  // namespace qor
