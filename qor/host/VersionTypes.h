// The Windows structures the version calls hand out, with their layouts.
#pragma once

#include "qor/platform/Win32Types.h"

// The fixed part of a version resource, as stored in the file.
struct tagVS_FIXEDFILEINFO {
    DWORD dwSignature;         // 0xFEEF04BD
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
};
using VS_FIXEDFILEINFO = tagVS_FIXEDFILEINFO;
static_assert(sizeof(tagVS_FIXEDFILEINFO) == 52);

// A 64-bit count of 100-nanosecond intervals since 1601, in two halves.
struct _FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
using FILETIME = _FILETIME;

// What GetVersionExA fills: 148 bytes, the size the caller stores first.
struct _OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    char szCSDVersion[128];
};
using OSVERSIONINFOA = _OSVERSIONINFOA;
static_assert(sizeof(_OSVERSIONINFOA) == 148);

#define VER_PLATFORM_WIN32s 0u
#define VER_PLATFORM_WIN32_WINDOWS 1u
#define VER_PLATFORM_WIN32_NT 2u
