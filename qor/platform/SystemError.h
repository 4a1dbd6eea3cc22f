// The calling thread's last error, and texts for system error numbers.
#pragma once

#include <string>

#include "qor/platform/Win32Types.h"

DWORD GetLastError();
void SetLastError(DWORD error);

namespace qor {

// The system's text for an errno value ("Connection refused", ...).
std::string SystemErrorText(int errnum);

}  // namespace qor
