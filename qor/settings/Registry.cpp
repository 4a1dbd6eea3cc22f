#include "qor/settings/Registry.h"

#include <cstring>

#include "qor/platform/Waitable.h"
#include "qor/task/LockGuards.h"

namespace reg = qor::registry;

namespace {

const char *const kRegistryMutexName = "Qor Registry Mutex";

// A run of this many failures in a row while enumerating means the store
// itself fails, not one item, and ends the enumeration.
constexpr int kRegistryEnumFailureRun = 16;

}  // namespace

CRegistry::CRegistry(HKEY root)
    : rootKey(root), mutex(CreateMutex(nullptr, FALSE, kRegistryMutexName)) {}

CRegistry::CRegistry(const CRegistry &other)
    : rootKey(other.rootKey), mutex(CreateMutex(nullptr, FALSE, kRegistryMutexName)) {}

CRegistry &CRegistry::operator=(const CRegistry &other) {
    rootKey = other.rootKey;
    return *this;
}

CRegistry::~CRegistry() {
    if (mutex) CloseHandle(mutex);
}

int CRegistry::OnValueHit(const char *, const char *, const CRegVal &, unsigned short) { return 0; }

int CRegistry::OnKeyHit(const char *, unsigned short) { return 0; }

int CRegistry::Connect(const char *machine, HKEY hive) {
    HKEY connected = nullptr;
    if (reg::ConnectRegistry(machine, hive, &connected) != reg::kSuccess) return 0;
    rootKey = connected;
    return 1;
}

HKEY CRegistry::SetKey(HKEY key) {
    HKEY old = rootKey;
    rootKey = key;
    return old;
}

// --- loading ---------------------------------------------------------------

int CRegistry::LoadKey(void *mutex, const char *path, const char *name, CRegVal &value, HKEY root) {
    auto_mutex hold(mutex);
    DWORD type = 0;
    std::string bytes;
    if (reg::GetKeyValue(root, path, name, &type, &bytes) != reg::kSuccess) return 0;
    value.Assign(bytes.data(), static_cast<unsigned long>(bytes.size()), type);
    reg::CloseKey(root);
    return 1;
}

int CRegistry::LoadKey(const char *path, const char *name, CRegVal &value) {
    return LoadKey(mutex, path, name, value, rootKey);
}

int CRegistry::LoadKey(const char *path, const char *name, unsigned long &value) {
    CRegVal stored;
    return LoadKey(path, name, stored) && stored.GetValue(value);
}

int CRegistry::LoadKey(const char *path, const char *name, std::string &value) {
    CRegVal stored;
    return LoadKey(path, name, stored) && stored.GetValue(value);
}

int CRegistry::LoadKey(const char *path, const char *name, CStringArray &value) {
    CRegVal stored;
    return LoadKey(path, name, stored) && stored.GetValue(value);
}

int CRegistry::LoadKey(const char *path, const char *name, unsigned char *buffer, unsigned long size) {
    CRegVal stored;
    return LoadKey(path, name, stored) && stored.GetValue(buffer, size);
}

// --- saving ----------------------------------------------------------------

int CRegistry::SaveKey(void *mutex, const char *path, const char *name, const CRegVal &value,
                       HKEY root) {
    auto_mutex hold(mutex);
    LONG result;
    if (!name) {
        // Only the key is wanted.
        HKEY key = nullptr;
        result = reg::CreateKey(root, path, reg::kWrite, &key);
        if (result == reg::kSuccess) reg::CloseKey(key);
    } else {
        result = reg::SetKeyValue(root, path, name, static_cast<DWORD>(value.type), value.data,
                             static_cast<DWORD>(value.size));
    }
    reg::CloseKey(root);
    return result == reg::kSuccess ? 1 : 0;
}

int CRegistry::SaveKey(const char *path, const char *name, const CRegVal &value) const {
    return SaveKey(mutex, path, name, value, rootKey);
}

int CRegistry::SaveKey(const char *path, const char *name, const char *value) const {
    return SaveKey(path, name, CRegVal(value));
}

int CRegistry::SaveKey(const char *path, const char *name, const unsigned long &value) const {
    return SaveKey(path, name, CRegVal(value));
}

int CRegistry::SaveKey(const char *path, const char *name, const CStringArray &value) const {
    return SaveKey(path, name, CRegVal(value));
}

int CRegistry::SaveKey(const char *path, const char *name, unsigned char *const buffer,
                       unsigned long size) const {
    return SaveKey(path, name, CRegVal(buffer, size));
}

// --- deleting --------------------------------------------------------------

int CRegistry::DeleteKey(void *mutex, const char *path, const char *name, HKEY root) {
    auto_mutex hold(mutex);
    HKEY key = nullptr;
    if (name) {
        if (reg::OpenKey(root, path, reg::kReadWrite, &key) != reg::kSuccess) return 0;
        const LONG result = reg::DeleteValue(key, name);
        reg::CloseKey(key);
        reg::CloseKey(root);
        return result == reg::kSuccess ? 1 : 0;
    }
    // The key goes last: first every subkey, each emptied the same way.
    if (reg::OpenKey(root, path, reg::kRead, &key) != reg::kSuccess) return 0;
    for (;;) {
        reg::KeyInfo info;
        if (reg::QueryInfoKey(key, &info) != reg::kSuccess) {
            reg::CloseKey(key);
            return 0;
        }
        if (info.subKeys == 0) break;
        std::string child;
        if (reg::EnumKey(key, 0, &child) != reg::kSuccess || !DeleteKey(mutex, child.c_str(), nullptr, key)) {
            reg::CloseKey(key);
            return 0;
        }
    }
    reg::CloseKey(key);
    return reg::DeleteKey(root, path) == reg::kSuccess ? 1 : 0;
}

int CRegistry::DeleteKey(const char *path, const char *name) const {
    return DeleteKey(mutex, path, name, rootKey);
}

// --- counting --------------------------------------------------------------

int CRegistry::HasEntries(void *mutex, const char *path, unsigned long *subkeyCount,
                          unsigned long *valueCount, HKEY root) {
    auto_mutex hold(mutex);
    if (subkeyCount) *subkeyCount = 0;
    if (valueCount) *valueCount = 0;
    HKEY key = nullptr;
    if (reg::OpenKey(root, path, reg::kRead, &key) != reg::kSuccess) return 0;
    reg::KeyInfo info;
    const LONG result = reg::QueryInfoKey(key, &info);
    reg::CloseKey(key);
    if (result != reg::kSuccess) return 0;
    if (subkeyCount) *subkeyCount = info.subKeys;
    if (valueCount) *valueCount = info.values;
    return info.subKeys > 0 || info.values > 0 ? 1 : 0;
}

int CRegistry::HasEntries(const char *path, unsigned long *subkeyCount,
                          unsigned long *valueCount) const {
    return HasEntries(mutex, path, subkeyCount, valueCount, rootKey);
}

// --- copying ---------------------------------------------------------------

long CRegistry::CopyKey(HKEY source, HKEY destination, const char *sourcePath,
                        const char *destinationPath) {
    auto_mutex hold(mutex);
    HKEY to = nullptr;
    LONG result = reg::CreateKey(destination, destinationPath, reg::kAllAccess, &to);
    if (result != reg::kSuccess) return result;
    HKEY from = nullptr;
    result = reg::OpenKey(source, sourcePath, reg::kRead, &from);
    if (result != reg::kSuccess) {
        reg::CloseKey(to);
        return result;
    }
    std::string name;
    for (DWORD index = 0;; ++index) {
        result = reg::EnumKey(from, index, &name);
        if (result == reg::kNoMoreItems) {
            result = reg::kSuccess;
            break;
        }
        if (result != reg::kSuccess) break;
        result = CopyKey(from, to, name.c_str(), name.c_str());
        if (result != reg::kSuccess) break;
    }
    if (result == reg::kSuccess) {
        DWORD type = 0;
        std::string data;
        for (DWORD index = 0;; ++index) {
            result = reg::EnumValue(from, index, &name, &type, &data);
            if (result == reg::kNoMoreItems) {
                result = reg::kSuccess;
                break;
            }
            if (result != reg::kSuccess) break;
            result = reg::SetValue(to, name.c_str(), type, data.data(), static_cast<DWORD>(data.size()));
            if (result != reg::kSuccess) break;
        }
    }
    reg::CloseKey(from);
    reg::CloseKey(to);
    return result;
}

// --- walking ---------------------------------------------------------------

int CRegistry::RegistryTreeWalk(const char *path, unsigned int flags) {
    HKEY key = rootKey;
    if (path && reg::OpenKey(rootKey, path, reg::kRead, &key) != reg::kSuccess) return 0;
    return RegTreeWalk(path, key, flags, 0);
}

int CRegistry::RegTreeWalk(const char *path, HKEY key, unsigned int flags, unsigned short depth) {
    auto_mutex hold(mutex);
    reg::KeyInfo info;
    if (reg::QueryInfoKey(key, &info) != reg::kSuccess) {
        reg::CloseKey(key);
        return 0;
    }
    std::string name;
    if (flags & 1) {
        CRegVal value;
        DWORD type = 0;
        std::string data;
        int failures = 0;
        for (DWORD index = 0; failures < kRegistryEnumFailureRun; ++index) {
            const LONG result = reg::EnumValue(key, index, &name, &type, &data);
            if (result == reg::kNoMoreItems) break;
            if (result != reg::kSuccess) {
                ++failures;  // that one item is skipped
                continue;
            }
            failures = 0;
            value.Assign(data.data(), static_cast<unsigned long>(data.size()), type);
            if (!OnValueHit(path, name.c_str(), value, depth)) {
                reg::CloseKey(key);
                return 0;
            }
        }
    }
    int failures = 0;
    for (DWORD index = 0; failures < kRegistryEnumFailureRun; ++index) {
        const LONG result = reg::EnumKey(key, index, &name);
        if (result == reg::kNoMoreItems) break;
        if (result != reg::kSuccess) {
            ++failures;
            continue;
        }
        failures = 0;
        if ((flags & 2) && !OnKeyHit(name.c_str(), depth)) {
            reg::CloseKey(key);
            return 0;
        }
        HKEY subkey = nullptr;
        if (reg::OpenKey(key, name.c_str(), reg::kRead, &subkey) != reg::kSuccess) continue;
        if (!path) {
            // A walk of the root itself stays at the top.
            reg::CloseKey(subkey);
            continue;
        }
        const std::string subpath = std::string(path) + "\\" + name;
        if (!RegTreeWalk(subpath.c_str(), subkey, flags, static_cast<unsigned short>(depth + 1))) {
            reg::CloseKey(key);
            return 0;
        }
    }
    reg::CloseKey(key);
    return 1;
}
