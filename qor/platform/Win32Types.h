// The handful of Win32 type names and constants that the library's interfaces
// are spelled with, so a driver written against the original headers keeps
// its spelling. Widths are those of the 32-bit original.
#pragma once

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using BOOL = int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using ULONGLONG = std::uint64_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

// A waitable object: event, mutex or thread (see Waitable.h).
using HANDLE = void *;
// Window handles only travel inside MSG; progress reporting uses qor::ProgressTarget.
using HWND = void *;
// A module whose embedded resources are looked up (see the 3-D view's models).
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__ *;

// A registry key of the settings store; the predefined roots keep their
// Windows values so `key == HKEY_CURRENT_USER` compares as on Windows.
struct HKEY__;
using HKEY = HKEY__ *;
#define HKEY_CLASSES_ROOT ((HKEY)(std::uintptr_t)0x80000000u)
#define HKEY_CURRENT_USER ((HKEY)(std::uintptr_t)0x80000001u)
#define HKEY_LOCAL_MACHINE ((HKEY)(std::uintptr_t)0x80000002u)
#define HKEY_USERS ((HKEY)(std::uintptr_t)0x80000003u)
#define HKEY_PERFORMANCE_DATA ((HKEY)(std::uintptr_t)0x80000004u)
#define HKEY_CURRENT_CONFIG ((HKEY)(std::uintptr_t)0x80000005u)

// Registry value types.
#define REG_NONE 0u
#define REG_SZ 1u
#define REG_EXPAND_SZ 2u
#define REG_BINARY 3u
#define REG_DWORD 4u
#define REG_DWORD_BIG_ENDIAN 5u
#define REG_LINK 6u
#define REG_MULTI_SZ 7u
#define REG_RESOURCE_LIST 8u
#define REG_FULL_RESOURCE_DESCRIPTOR 9u
#define REG_RESOURCE_REQUIREMENTS_LIST 10u
#define REG_QWORD 11u

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

#define INFINITE 0xFFFFFFFFu
#define WAIT_OBJECT_0 0x00000000u
#define WAIT_ABANDONED_0 0x00000080u
#define WAIT_TIMEOUT 0x00000102u
#define WAIT_FAILED 0xFFFFFFFFu

#define QS_ALLINPUT 0x04FFu
#define PM_NOREMOVE 0x0000u
#define PM_REMOVE 0x0001u
#define WM_NULL 0x0000u
#define WM_QUIT 0x0012u
#define WM_USER 0x0400u

#define ERROR_SUCCESS 0L
