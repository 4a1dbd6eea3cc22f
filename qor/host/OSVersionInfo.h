// OSVersionInfo: the operating system's version reduced to one small code, on
// which other classes (LANInfo) choose their strategy.
//
//   code  version reported            code  version reported
//   0     unknown, or not in table    5     4.90
//   1     3.51                        6     5.0
//   2     4.0 on the NT platform      7     5.1
//   3     4.0 on the 9x platform      8     5.2
//   4     4.10                        9     6.x
//
// On Linux the version is the kernel's release (uname): major and minor of
// "6.1.0-18-amd64" are 6 and 1, the platform is the NT one (2). So a 6.x
// kernel yields 9, 5.0 to 5.2 yield 6 to 8, 4.0 yields 2, 4.10 yields 4, and
// every other kernel (3.x, most of 4.x and 5.x, 7 and later) yields 0.
#pragma once

#include "qor/host/VersionTypes.h"

class OSVersionInfo {
public:
    static int GetOSVersionInfo();
    // The code for a version, by the table above.
    static int CodeFor(unsigned major, unsigned minor, unsigned platform);
};

namespace qor {

// Fills `info` from the kernel's release as GetVersionEx would: major, minor,
// the third number as build, platform 2, and the kernel's build text
// (uname's version) in szCSDVersion. FALSE when `info` is null, its size field
// is not 148, or uname fails.
BOOL GetVersionExA(OSVERSIONINFOA *info);

}  // namespace qor
