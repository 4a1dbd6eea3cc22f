// The thread's last error and texts for errno values.
#include <cstring>

#include "qor/platform/SystemError.h"

namespace qor::kernel {
namespace {
thread_local DWORD lastError = 0;

// strerror_r comes in two shapes; both end up here.
[[maybe_unused]] const char *ErrorTextOf(int result, const char *buffer) { return result == 0 ? buffer : nullptr; }
[[maybe_unused]] const char *ErrorTextOf(const char *result, const char *) { return result; }
}  // namespace
}  // namespace qor::kernel

DWORD GetLastError() { return qor::kernel::lastError; }

void SetLastError(DWORD error) { qor::kernel::lastError = error; }

namespace qor {

std::string SystemErrorText(int errnum) {
    char buffer[256] = {};
    const char *text = kernel::ErrorTextOf(strerror_r(errnum, buffer, sizeof buffer), buffer);
    if (!text || !*text) return "Unknown error " + std::to_string(errnum);
    return text;
}

}  // namespace qor
