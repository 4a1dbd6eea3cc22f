// Time as the library measures it: milliseconds on a monotonic clock.
#pragma once

#include "qor/platform/Win32Types.h"

void Sleep(DWORD milliseconds);
ULONGLONG GetTickCount64();
DWORD GetTickCount();
