// The key and value operations of the registry store: handles, path walking,
// and one transaction per call.
#include <chrono>
#include <cstring>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "qor/settings/RegistryStore.h"
#include "qor/settings/StoreConnection.h"

namespace qor::registry {
namespace {

// What a handle stands for: a key row of one store file.
struct KeyRecord {
    std::string file;
    std::int64_t id = StoreConnection::kRootKey;
    REGSAM access = kAllAccess;
    unsigned depth = 0;
};

class KeyTable {
public:
    HKEY Add(KeyRecord record) {
        std::lock_guard<std::mutex> guard(lock);
        std::uintptr_t value = next++;
        // Keep clear of the values of the predefined hives.
        if (value >= 0x80000000u && value <= 0x800000FFu) {
            next = 0x80000100u;
            value = next++;
        }
        keys.emplace(value, std::move(record));
        return reinterpret_cast<HKEY>(value);
    }
    bool Find(HKEY key, KeyRecord *record) {
        std::lock_guard<std::mutex> guard(lock);
        auto found = keys.find(reinterpret_cast<std::uintptr_t>(key));
        if (found == keys.end()) return false;
        *record = found->second;
        return true;
    }
    bool Remove(HKEY key) {
        std::lock_guard<std::mutex> guard(lock);
        return keys.erase(reinterpret_cast<std::uintptr_t>(key)) != 0;
    }
    std::size_t Count() {
        std::lock_guard<std::mutex> guard(lock);
        return keys.size();
    }

private:
    std::mutex lock;
    std::uintptr_t next = 0x1000;
    std::unordered_map<std::uintptr_t, KeyRecord> keys;
};

KeyTable &Keys() {
    static auto *table = new KeyTable;
    return *table;
}

// A predefined hive, or a handle this store gave out.
LONG Resolve(HKEY key, KeyRecord *record) {
    std::string file = RegistryHiveFile(key);
    if (!file.empty()) {
        record->file = std::move(file);
        record->id = StoreConnection::kRootKey;
        record->access = kAllAccess;
        record->depth = 0;
        return kSuccess;
    }
    return Keys().Find(key, record) ? kSuccess : kInvalidHandle;
}

// Splits a key path at '\'. A single trailing '\' is allowed; an empty
// name anywhere else, or a name longer than the registry allows, is not.
LONG SplitPath(const char *path, std::vector<std::string_view> *names) {
    names->clear();
    if (!path || !*path) return kSuccess;
    std::string_view rest(path);
    if (rest.back() == '\\') rest.remove_suffix(1);
    if (rest.empty()) return kBadPathName;
    for (;;) {
        const std::size_t cut = rest.find('\\');
        const std::string_view name = rest.substr(0, cut);
        if (name.empty()) return kBadPathName;
        if (name.size() > kMaxKeyNameLength) return kInvalidParameter;
        names->push_back(name);
        if (cut == std::string_view::npos) return kSuccess;
        rest.remove_prefix(cut + 1);
    }
}

// A statement in use, reset when it goes out of scope so that its read lock
// is not kept.
class Query {
public:
    Query(StoreConnection &connection, Sql which) : statement(connection.Statement(which)) {}
    ~Query() { sqlite3_reset(statement); }
    Query(const Query &) = delete;
    Query &operator=(const Query &) = delete;

    Query &Bind(int index, std::int64_t value) {
        sqlite3_bind_int64(statement, index, value);
        return *this;
    }
    Query &Bind(int index, std::string_view text) {
        sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()),
                          SQLITE_STATIC);
        return *this;
    }
    Query &BindBlob(int index, const void *data, DWORD size) {
        if (size == 0)
            sqlite3_bind_zeroblob(statement, index, 0);
        else
            sqlite3_bind_blob(statement, index, data, static_cast<int>(size), SQLITE_STATIC);
        return *this;
    }
    int Step() { return sqlite3_step(statement); }
    std::int64_t Int(int column) { return sqlite3_column_int64(statement, column); }
    std::string Text(int column) {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
        return text ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)))
                    : std::string();
    }
    std::string Blob(int column) {
        const void *blob = sqlite3_column_blob(statement, column);
        const int size = sqlite3_column_bytes(statement, column);
        return blob ? std::string(static_cast<const char *>(blob), static_cast<std::size_t>(size))
                    : std::string();
    }

private:
    sqlite3_stmt *statement;
};

// What a transaction body reports: a SQLite failure, or a registry error
// that rolls back what the body did.
struct Outcome {
    int sqlite = SQLITE_OK;
    LONG error = kSuccess;
};

Outcome Failed(int sqliteCode) { return Outcome{sqliteCode, kSuccess}; }
Outcome Refused(LONG error) { return Outcome{SQLITE_OK, error}; }

bool Busy(int code) {
    code &= 0xFF;
    return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

// Runs `body` as one transaction on the store of `file`, from its start
// again while the store is busy, for up to a minute.
template <class Body>
LONG Transact(const std::string &file, bool write, Body body) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (;;) {
        StoreConnection *connection = ConnectionFor(file);
        if (!connection) return kCantOpen;
        int rc = Query(*connection, write ? Sql::BeginWrite : Sql::Begin).Step();
        Outcome outcome = rc == SQLITE_DONE ? body(*connection) : Failed(rc);
        if (outcome.sqlite == SQLITE_OK && outcome.error == kSuccess) {
            rc = Query(*connection, Sql::Commit).Step();
            if (rc == SQLITE_DONE) return kSuccess;
            outcome = Failed(rc);
        }
        if (sqlite3_get_autocommit(connection->Handle()) == 0)
            Query(*connection, Sql::Rollback).Step();
        if (outcome.sqlite == SQLITE_OK) return outcome.error;
        if (!Busy(outcome.sqlite) || std::chrono::steady_clock::now() >= deadline) {
            NoteStoreError(file + ": " + sqlite3_errstr(outcome.sqlite));
            return ErrorFromSqlite(outcome.sqlite);
        }
    }
}

Outcome CheckKeyExists(StoreConnection &connection, std::int64_t id) {
    Query exists(connection, Sql::KeyExists);
    const int rc = exists.Bind(1, id).Step();
    if (rc == SQLITE_ROW) return {};
    return rc == SQLITE_DONE ? Refused(kKeyDeleted) : Failed(rc);
}

// Follows `names` down from `from`; kFileNotFound when one is missing,
// unless `create` is set, which makes the missing keys.
// The cache's name for a path below `from`: names are matched without
// regard to ASCII case, so the path is folded.
std::string KeyCachePath(std::int64_t from, const std::vector<std::string_view> &names) {
    std::string path = std::to_string(from);
    for (std::string_view name : names) {
        path += '\\';
        for (char c : name) path += (c >= 'a' && c <= 'z') ? static_cast<char>(c - ('a' - 'A')) : c;
    }
    return path;
}

Outcome WalkPath(StoreConnection &connection, std::int64_t from,
                 const std::vector<std::string_view> &names, bool create, std::int64_t *found,
                 bool *created) {
    if (Outcome start = CheckKeyExists(connection, from); start.sqlite || start.error) return start;
    if (created) *created = false;
    if (names.empty()) {
        *found = from;
        return {};
    }
    // The transaction has read the file by now, so the cache can tell
    // whether anything changed since its entries were found.
    connection.RefreshKeyCache();
    const std::string cachePath = KeyCachePath(from, names);
    if (connection.CachedKey(cachePath, found)) return {};
    std::int64_t id = from;
    bool made = false;
    for (std::string_view name : names) {
        made = false;
        Query find(connection, Sql::FindChild);
        const int rc = find.Bind(1, id).Bind(2, name).Step();
        if (rc == SQLITE_ROW) {
            id = find.Int(0);
            continue;
        }
        if (rc != SQLITE_DONE) return Failed(rc);
        if (!create) return Refused(kFileNotFound);
        Query insert(connection, Sql::InsertKey);
        const int inserted = insert.Bind(1, id).Bind(2, name).Step();
        if (inserted != SQLITE_DONE) return Failed(inserted);
        id = sqlite3_last_insert_rowid(connection.Handle());
        made = true;
    }
    // Keys made here may yet be rolled back; only keys that were there are kept.
    if (!made) connection.CacheKey(cachePath, id);
    *found = id;
    if (created) *created = made;
    return {};
}

LONG Open(HKEY root, const char *path, REGSAM access, HKEY *key, bool create, bool *created) {
    if (!key) return kInvalidParameter;
    *key = nullptr;
    KeyRecord parent;
    if (LONG error = Resolve(root, &parent)) return error;
    std::vector<std::string_view> names;
    if (LONG error = SplitPath(path, &names)) return error;
    const bool mayCreate = create && (parent.access & kCreateSubKey);
    if (parent.depth + names.size() > kMaxKeyDepth) return create ? kCantWrite : kFileNotFound;
    std::int64_t id = 0;
    LONG error = Transact(parent.file, mayCreate, [&](StoreConnection &connection) {
        return WalkPath(connection, parent.id, names, mayCreate, &id, created);
    });
    if (create && !mayCreate && error == kFileNotFound) error = kAccessDenied;
    if (error) return error;
    KeyRecord opened{parent.file, id, access,
                     parent.depth + static_cast<unsigned>(names.size())};
    *key = Keys().Add(std::move(opened));
    return kSuccess;
}

// Resolves `key` and checks that it was opened with `needed` rights.
LONG Use(HKEY key, REGSAM needed, KeyRecord *record) {
    if (LONG error = Resolve(key, record)) return error;
    return (record->access & needed) == needed ? kSuccess : kAccessDenied;
}

std::string_view ValueName(const char *name) { return name ? std::string_view(name) : std::string_view(); }

// Reads the type and bytes of value `name` of the key with row `id`.
Outcome ReadValueRow(StoreConnection &connection, std::int64_t id, const char *name, DWORD *type,
                     std::string *data) {
    Query query(connection, Sql::QueryValue);
    const int rc = query.Bind(1, id).Bind(2, ValueName(name)).Step();
    if (rc == SQLITE_DONE) return Refused(kFileNotFound);
    if (rc != SQLITE_ROW) return Failed(rc);
    *type = static_cast<DWORD>(query.Int(0));
    *data = query.Blob(1);
    return Outcome{};
}

}  // namespace

LONG OpenKey(HKEY root, const char *path, REGSAM access, HKEY *key) {
    return Open(root, path, access, key, false, nullptr);
}

LONG CreateKey(HKEY root, const char *path, REGSAM access, HKEY *key, bool *created) {
    return Open(root, path, access, key, true, created);
}

LONG CloseKey(HKEY key) {
    if (!RegistryHiveFile(key).empty()) return kSuccess;
    return Keys().Remove(key) ? kSuccess : kInvalidHandle;
}

LONG QueryInfoKey(HKEY key, KeyInfo *info) {
    KeyRecord record;
    if (LONG error = Use(key, kQueryValue, &record)) return error;
    KeyInfo result;
    LONG error = Transact(record.file, false, [&](StoreConnection &connection) {
        if (Outcome exists = CheckKeyExists(connection, record.id); exists.sqlite || exists.error)
            return exists;
        Query subKeys(connection, Sql::SubKeyInfo);
        int rc = subKeys.Bind(1, record.id).Step();
        if (rc != SQLITE_ROW) return Failed(rc);
        result.subKeys = static_cast<DWORD>(subKeys.Int(0));
        result.maxSubKeyLength = static_cast<DWORD>(subKeys.Int(1));
        Query values(connection, Sql::ValueInfo);
        rc = values.Bind(1, record.id).Step();
        if (rc != SQLITE_ROW) return Failed(rc);
        result.values = static_cast<DWORD>(values.Int(0));
        result.maxValueNameLength = static_cast<DWORD>(values.Int(1));
        result.maxValueLength = static_cast<DWORD>(values.Int(2));
        return Outcome{};
    });
    if (!error && info) *info = result;
    return error;
}

LONG QueryValue(HKEY key, const char *name, DWORD *type, std::string *data) {
    KeyRecord record;
    if (LONG error = Use(key, kQueryValue, &record)) return error;
    DWORD foundType = 0;
    std::string foundData;
    LONG error = Transact(record.file, false, [&](StoreConnection &connection) {
        return ReadValueRow(connection, record.id, name, &foundType, &foundData);
    });
    if (error) return error;
    if (type) *type = foundType;
    if (data) *data = std::move(foundData);
    return kSuccess;
}

LONG SetValue(HKEY key, const char *name, DWORD type, const void *data, DWORD size) {
    KeyRecord record;
    if (LONG error = Use(key, kSetValue, &record)) return error;
    const std::string_view valueName = ValueName(name);
    if (valueName.size() > kMaxValueNameLength) return kInvalidParameter;
    if (size != 0 && !data) return kInvalidParameter;
    return Transact(record.file, true, [&](StoreConnection &connection) {
        Query upsert(connection, Sql::UpsertValue);
        upsert.Bind(1, record.id).Bind(2, valueName).Bind(3, static_cast<std::int64_t>(type));
        const int rc = upsert.BindBlob(4, data, size).Step();
        if (rc == SQLITE_DONE) return Outcome{};
        // A value for a key deleted meanwhile breaks the key reference.
        if (rc == SQLITE_CONSTRAINT_FOREIGNKEY) return Refused(kKeyDeleted);
        return Failed(rc);
    });
}

LONG DeleteValue(HKEY key, const char *name) {
    KeyRecord record;
    if (LONG error = Use(key, kSetValue, &record)) return error;
    return Transact(record.file, true, [&](StoreConnection &connection) {
        Query remove(connection, Sql::DeleteValue);
        const int rc = remove.Bind(1, record.id).Bind(2, ValueName(name)).Step();
        if (rc != SQLITE_DONE) return Failed(rc);
        return sqlite3_changes(connection.Handle()) ? Outcome{} : Refused(kFileNotFound);
    });
}

LONG EnumKey(HKEY key, DWORD index, std::string *name) {
    KeyRecord record;
    if (LONG error = Use(key, kEnumerateSubKeys, &record)) return error;
    std::string found;
    LONG error = Transact(record.file, false, [&](StoreConnection &connection) {
        Query enumerate(connection, Sql::EnumKey);
        const int rc = enumerate.Bind(1, record.id).Bind(2, static_cast<std::int64_t>(index)).Step();
        if (rc == SQLITE_DONE) return Refused(kNoMoreItems);
        if (rc != SQLITE_ROW) return Failed(rc);
        found = enumerate.Text(0);
        return Outcome{};
    });
    if (!error && name) *name = std::move(found);
    return error;
}

LONG EnumValue(HKEY key, DWORD index, std::string *name, DWORD *type, std::string *data) {
    KeyRecord record;
    if (LONG error = Use(key, kQueryValue, &record)) return error;
    std::string foundName, foundData;
    DWORD foundType = 0;
    LONG error = Transact(record.file, false, [&](StoreConnection &connection) {
        Query enumerate(connection, Sql::EnumValue);
        const int rc = enumerate.Bind(1, record.id).Bind(2, static_cast<std::int64_t>(index)).Step();
        if (rc == SQLITE_DONE) return Refused(kNoMoreItems);
        if (rc != SQLITE_ROW) return Failed(rc);
        foundName = enumerate.Text(0);
        foundType = static_cast<DWORD>(enumerate.Int(1));
        foundData = enumerate.Blob(2);
        return Outcome{};
    });
    if (error) return error;
    if (name) *name = std::move(foundName);
    if (type) *type = foundType;
    if (data) *data = std::move(foundData);
    return kSuccess;
}

LONG GetKeyValue(HKEY key, const char *path, const char *name, DWORD *type, std::string *data) {
    KeyRecord record;
    if (LONG error = Resolve(key, &record)) return error;
    std::vector<std::string_view> names;
    if (LONG error = SplitPath(path, &names)) return error;
    DWORD foundType = 0;
    std::string foundData;
    LONG error = Transact(record.file, false, [&](StoreConnection &connection) {
        std::int64_t id = 0;
        if (Outcome walk = WalkPath(connection, record.id, names, false, &id, nullptr);
            walk.sqlite || walk.error)
            return walk;
        return ReadValueRow(connection, id, name, &foundType, &foundData);
    });
    if (error) return error;
    if (type) *type = foundType;
    if (data) *data = std::move(foundData);
    return kSuccess;
}

LONG SetKeyValue(HKEY key, const char *path, const char *name, DWORD type, const void *data,
                 DWORD size) {
    KeyRecord record;
    if (LONG error = Resolve(key, &record)) return error;
    std::vector<std::string_view> names;
    if (LONG error = SplitPath(path, &names)) return error;
    if (record.depth + names.size() > kMaxKeyDepth) return kCantWrite;
    const std::string_view valueName = ValueName(name);
    if (valueName.size() > kMaxValueNameLength) return kInvalidParameter;
    if (size != 0 && !data) return kInvalidParameter;
    const bool mayCreate = (record.access & kCreateSubKey) != 0;
    return Transact(record.file, true, [&](StoreConnection &connection) {
        std::int64_t id = 0;
        if (Outcome walk = WalkPath(connection, record.id, names, mayCreate, &id, nullptr);
            walk.sqlite || walk.error)
            return walk.error == kFileNotFound ? Refused(kAccessDenied) : walk;
        Query upsert(connection, Sql::UpsertValue);
        upsert.Bind(1, id).Bind(2, valueName).Bind(3, static_cast<std::int64_t>(type));
        const int rc = upsert.BindBlob(4, data, size).Step();
        return rc == SQLITE_DONE ? Outcome{} : Failed(rc);
    });
}

LONG DeleteKey(HKEY key, const char *path) {
    KeyRecord record;
    if (LONG error = Resolve(key, &record)) return error;
    std::vector<std::string_view> names;
    if (LONG error = SplitPath(path, &names)) return error;
    return Transact(record.file, true, [&](StoreConnection &connection) {
        std::int64_t id = 0;
        if (Outcome walk = WalkPath(connection, record.id, names, false, &id, nullptr);
            walk.sqlite || walk.error)
            return walk;
        // The root of a hive stays.
        if (id == StoreConnection::kRootKey) return Refused(kAccessDenied);
        Query children(connection, Sql::HasSubKeys);
        int rc = children.Bind(1, id).Step();
        if (rc == SQLITE_ROW) return Refused(kAccessDenied);
        if (rc != SQLITE_DONE) return Failed(rc);
        Query remove(connection, Sql::DeleteKey);
        rc = remove.Bind(1, id).Step();
        return rc == SQLITE_DONE ? Outcome{} : Failed(rc);
    });
}

LONG ConnectRegistry(const char *machine, HKEY hive, HKEY *result) {
    if (!result) return kInvalidParameter;
    *result = nullptr;
    if (machine && *machine) return kBadNetPath;
    if (RegistryHiveFile(hive).empty()) return kInvalidHandle;
    *result = hive;
    return kSuccess;
}

std::size_t OpenKeyCount() { return Keys().Count(); }

}  // namespace qor::registry
