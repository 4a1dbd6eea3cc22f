// The registry store: a hierarchical store of named, typed values shaped
// like the Win32 registry calls, kept in one SQLite database per hive.
//
// Keys are opened by path below a hive or below another open key; paths use
// '\' between names. Key and value names are compared without regard to ASCII
// case and keep the case they were created with. Subkeys enumerate in name
// order (case-insensitive, as the registry sorts them), values in the order
// they were first written. Every call is one SQLite transaction; a call that
// returned ERROR_SUCCESS after a write is on disk for any process that opens
// the store afterwards, a crash of the writer included.
//
// Every call returns ERROR_SUCCESS (0) or a Win32 error number. Handles are
// not tied to a thread: each thread talks to SQLite through a connection of
// its own, cached for the thread's lifetime.
#pragma once

#include <string>

#include "qor/platform/Win32Types.h"

namespace qor {

// Points a hive (HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, ...) at a store file,
// for this whole process. The file and its folder are made on first use.
// Keys opened before keep the file they were opened on. An empty name
// returns the hive to its default file.
void SetRegistryHiveFile(HKEY hive, const std::string &file);

// The file a hive is kept in now: the one set above, else
// $XDG_CONFIG_HOME (or ~/.config) /qor/registry/<HIVE NAME>.db.
// Empty for a value that is no predefined hive.
std::string RegistryHiveFile(HKEY hive);

// The predefined hives by name: the full names ("HKEY_CURRENT_USER") and the
// usual short ones ("HKCU"), compared without regard to case.
bool RegistryHiveFromName(const std::string &name, HKEY *hive);
// "HKEY_CURRENT_USER" for HKEY_CURRENT_USER; empty for anything else.
std::string RegistryHiveName(HKEY hive);

namespace registry {

using REGSAM = DWORD;

// Access rights, as the registry spells them.
constexpr REGSAM kQueryValue = 0x0001;
constexpr REGSAM kSetValue = 0x0002;
constexpr REGSAM kCreateSubKey = 0x0004;
constexpr REGSAM kEnumerateSubKeys = 0x0008;
constexpr REGSAM kRead = 0x20019;
constexpr REGSAM kWrite = 0x20006;
constexpr REGSAM kReadWrite = 0x2001F;
constexpr REGSAM kAllAccess = 0xF003F;

// Error numbers the store gives.
constexpr LONG kSuccess = 0;
constexpr LONG kFileNotFound = 2;
constexpr LONG kAccessDenied = 5;
constexpr LONG kInvalidHandle = 6;
constexpr LONG kNotEnoughMemory = 8;
constexpr LONG kWriteFault = 29;
constexpr LONG kLockViolation = 33;
constexpr LONG kNotSupported = 50;
constexpr LONG kBadNetPath = 53;
constexpr LONG kInvalidParameter = 87;
constexpr LONG kDiskFull = 112;
constexpr LONG kBadPathName = 161;
constexpr LONG kMoreData = 234;
constexpr LONG kNoMoreItems = 259;
constexpr LONG kBadDatabase = 1009;
constexpr LONG kBadKey = 1010;
constexpr LONG kCantOpen = 1011;
constexpr LONG kCantRead = 1012;
constexpr LONG kCantWrite = 1013;
constexpr LONG kRegistryIoFailed = 1016;
constexpr LONG kKeyDeleted = 1018;

// Limits the registry has, kept so that what is stored here fits there too.
constexpr std::size_t kMaxKeyNameLength = 255;
constexpr std::size_t kMaxValueNameLength = 16383;
constexpr unsigned kMaxKeyDepth = 512;

struct KeyInfo {
    DWORD subKeys = 0;
    DWORD maxSubKeyLength = 0;   // bytes of the longest subkey name
    DWORD values = 0;
    DWORD maxValueNameLength = 0;
    DWORD maxValueLength = 0;    // bytes of the largest value
};

// Opens an existing key. A null or empty path opens `root` itself again.
LONG OpenKey(HKEY root, const char *path, REGSAM access, HKEY *key);
// Opens a key, creating it and every missing key on the way. `created`, when
// not null, tells whether the last key was new. A trailing '\' is allowed.
LONG CreateKey(HKEY root, const char *path, REGSAM access, HKEY *key, bool *created = nullptr);
// Closing a predefined hive does nothing and succeeds.
LONG CloseKey(HKEY key);

LONG QueryInfoKey(HKEY key, KeyInfo *info);
// Reads a value; a null name is the key's unnamed value.
LONG QueryValue(HKEY key, const char *name, DWORD *type, std::string *data);
LONG SetValue(HKEY key, const char *name, DWORD type, const void *data, DWORD size);
LONG DeleteValue(HKEY key, const char *name);
// The index-th subkey in name order; kNoMoreItems past the end.
LONG EnumKey(HKEY key, DWORD index, std::string *name);
// The index-th value in the order values were first written.
LONG EnumValue(HKEY key, DWORD index, std::string *name, DWORD *type, std::string *data);
// A value of the key at `path` below `key`, read in one step without a
// handle (RegGetValue's shape). kFileNotFound for a missing key or value.
LONG GetKeyValue(HKEY key, const char *path, const char *name, DWORD *type, std::string *data);
// Writes a value of the key at `path` below `key`, creating the key and its
// parents as needed, in one transaction (RegSetKeyValue's shape).
LONG SetKeyValue(HKEY key, const char *path, const char *name, DWORD type, const void *data,
                 DWORD size);
// Deletes the key at `path` below `key`, with its values; refused with
// kAccessDenied while it has subkeys, as the registry does.
LONG DeleteKey(HKEY key, const char *path);
// Stores on other machines do not exist: always kBadNetPath for a machine
// name, and the hive itself for a null or empty one.
LONG ConnectRegistry(const char *machine, HKEY hive, HKEY *result);

// The words of the last failure of a store call on this thread ("database is
// locked", the file name that could not be opened, ...), for diagnostics.
std::string LastStoreError();

// Number of keys open in this process, for leak checks.
std::size_t OpenKeyCount();

}  // namespace registry
}  // namespace qor
