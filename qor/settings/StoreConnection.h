// One thread's SQLite connection to one hive file, with its prepared
// statements. Internal to the registry store.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <unordered_map>

#include "qor/platform/Win32Types.h"

namespace qor::registry {

// The collation that orders and matches key and value names: bytes compared
// with ASCII letters folded to upper case, as the registry sorts names.
// Registered on every connection; a tool that opens a store file by hand
// needs it too (the schema names it).
constexpr const char *kNameCollation = "REGNAME";
int RegisterNameCollation(sqlite3 *db);

// The statements of the store, prepared once per connection.
enum class Sql {
    Begin,
    BeginWrite,
    Commit,
    Rollback,
    FindChild,
    InsertKey,
    KeyExists,
    SubKeyInfo,
    ValueInfo,
    EnumKey,
    EnumValue,
    QueryValue,
    UpsertValue,
    DeleteValue,
    HasSubKeys,
    DeleteKey,
    Count
};

class StoreConnection {
public:
    // Opens (creating when missing) the store at `file`: the folder, WAL
    // journal, busy timeout, schema. Check ok() afterwards.
    explicit StoreConnection(const std::string &file);
    ~StoreConnection();
    StoreConnection(const StoreConnection &) = delete;
    StoreConnection &operator=(const StoreConnection &) = delete;

    bool ok() const { return db != nullptr; }
    const std::string &error() const { return openError; }

    // A reset statement, ready for binding.
    sqlite3_stmt *Statement(Sql which);
    sqlite3 *Handle() { return db; }

    static constexpr std::int64_t kRootKey = 1;

    // Key ids found by path, valid while the database stays as it was when
    // they were found. Call Refresh inside a transaction, after its first
    // statement: any change to the file since, by this connection or
    // another process, empties the cache.
    void RefreshKeyCache();
    bool CachedKey(const std::string &path, std::int64_t *id) const;
    void CacheKey(const std::string &path, std::int64_t id);

private:
    bool Configure();
    sqlite3 *db = nullptr;
    std::string openError;
    sqlite3_stmt *statements[static_cast<int>(Sql::Count)] = {};
    unsigned dataVersion = 0;
    std::unordered_map<std::string, std::int64_t> keyIds;
};

// This thread's connection to `file`, opened on first use and kept until the
// thread ends. Null when the store cannot be opened; the reason is then in
// LastStoreError().
StoreConnection *ConnectionFor(const std::string &file);

// Win32 error number for a SQLite result code.
LONG ErrorFromSqlite(int code);

// Records the words of a failure for LastStoreError().
void NoteStoreError(const std::string &text);

}  // namespace qor::registry
