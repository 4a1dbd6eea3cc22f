// Opening a hive file, its schema and settings, and the per-thread cache of
// connections with their prepared statements.
#include "qor/settings/StoreConnection.h"

#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>
#include <vector>

#include "qor/settings/RegistryStore.h"

namespace qor::registry {
namespace {

// How long one SQLite call waits for a lock held by another connection
// before it gives up and the operation is tried again from its start.
constexpr int kBusyTimeoutMs = 2000;
// Connections a thread keeps open at once; the least recently used goes.
constexpr std::size_t kConnectionsPerThread = 8;

const char *const kSchema =
    "CREATE TABLE IF NOT EXISTS registry_keys("
    " id INTEGER PRIMARY KEY,"
    " parent INTEGER REFERENCES registry_keys(id) ON DELETE CASCADE,"
    " name TEXT NOT NULL COLLATE REGNAME);"
    "CREATE UNIQUE INDEX IF NOT EXISTS registry_keys_by_name ON registry_keys(parent, name);"
    "CREATE TABLE IF NOT EXISTS registry_values("
    " id INTEGER PRIMARY KEY,"
    " key INTEGER NOT NULL REFERENCES registry_keys(id) ON DELETE CASCADE,"
    " name TEXT NOT NULL COLLATE REGNAME,"
    " type INTEGER NOT NULL,"
    " data BLOB NOT NULL,"
    " UNIQUE(key, name));"
    "INSERT OR IGNORE INTO registry_keys(id, parent, name) VALUES(1, NULL, '');"
    "PRAGMA user_version = 1;";

// The statements, in the order of Sql.
const char *const kStatements[] = {
    "BEGIN",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "SELECT id FROM registry_keys WHERE parent = ?1 AND name = ?2",
    "INSERT INTO registry_keys(parent, name) VALUES(?1, ?2)",
    "SELECT 1 FROM registry_keys WHERE id = ?1",
    "SELECT count(*), coalesce(max(length(CAST(name AS BLOB))), 0) FROM registry_keys"
    " WHERE parent = ?1",
    "SELECT count(*), coalesce(max(length(CAST(name AS BLOB))), 0),"
    " coalesce(max(length(data)), 0) FROM registry_values WHERE key = ?1",
    "SELECT name FROM registry_keys WHERE parent = ?1 ORDER BY name LIMIT 1 OFFSET ?2",
    "SELECT name, type, data FROM registry_values WHERE key = ?1 ORDER BY id LIMIT 1 OFFSET ?2",
    "SELECT type, data FROM registry_values WHERE key = ?1 AND name = ?2",
    "INSERT INTO registry_values(key, name, type, data) VALUES(?1, ?2, ?3, ?4)"
    " ON CONFLICT(key, name) DO UPDATE SET type = excluded.type, data = excluded.data",
    "DELETE FROM registry_values WHERE key = ?1 AND name = ?2",
    "SELECT 1 FROM registry_keys WHERE parent = ?1 LIMIT 1",
    "DELETE FROM registry_keys WHERE id = ?1",
};
static_assert(sizeof(kStatements) / sizeof(kStatements[0]) == static_cast<int>(Sql::Count));

int CompareRegistryNames(void *, int lengthA, const void *a, int lengthB, const void *b) {
    const auto *x = static_cast<const unsigned char *>(a);
    const auto *y = static_cast<const unsigned char *>(b);
    const int common = lengthA < lengthB ? lengthA : lengthB;
    for (int i = 0; i < common; ++i) {
        unsigned char cx = x[i], cy = y[i];
        if (cx >= 'a' && cx <= 'z') cx -= 'a' - 'A';
        if (cy >= 'a' && cy <= 'z') cy -= 'a' - 'A';
        if (cx != cy) return cx < cy ? -1 : 1;
    }
    return lengthA == lengthB ? 0 : (lengthA < lengthB ? -1 : 1);
}

bool IsBusy(int code) {
    code &= 0xFF;
    return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

// Runs SQL that may meet a lock held by another process, trying again until
// a generous deadline: a busy store is a wait, not a failure.
int ExecPatiently(sqlite3 *db, const char *sql) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (;;) {
        const int rc = sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
        if (!IsBusy(rc) || std::chrono::steady_clock::now() >= deadline) return rc;
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

thread_local std::string lastStoreError;

}  // namespace

int RegisterNameCollation(sqlite3 *db) {
    return sqlite3_create_collation(db, kNameCollation, SQLITE_UTF8, nullptr,
                                    CompareRegistryNames);
}

void NoteStoreError(const std::string &text) { lastStoreError = text; }

std::string LastStoreError() { return lastStoreError; }

LONG ErrorFromSqlite(int code) {
    switch (code & 0xFF) {
    case SQLITE_OK:
    case SQLITE_DONE:
    case SQLITE_ROW:
        return kSuccess;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return kLockViolation;
    case SQLITE_NOMEM:
        return kNotEnoughMemory;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return kAccessDenied;
    case SQLITE_FULL:
        return kDiskFull;
    case SQLITE_CANTOPEN:
        return kCantOpen;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_SCHEMA:
        return kBadDatabase;
    case SQLITE_CONSTRAINT:
        return kKeyDeleted;
    case SQLITE_TOOBIG:
        return kInvalidParameter;
    case SQLITE_IOERR:
        return kRegistryIoFailed;
    default:
        return kRegistryIoFailed;
    }
}

StoreConnection::StoreConnection(const std::string &file) {
    std::error_code ignored;
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);

    sqlite3 *opened = nullptr;
    const int rc = sqlite3_open_v2(file.c_str(), &opened,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                                   nullptr);
    if (rc != SQLITE_OK) {
        openError = "cannot open registry store " + file + ": " +
                    (opened ? sqlite3_errmsg(opened) : sqlite3_errstr(rc));
        sqlite3_close(opened);
        return;
    }
    db = opened;
    if (!Configure()) {
        openError = "cannot use registry store " + file + ": " + sqlite3_errmsg(db);
        for (sqlite3_stmt *&statement : statements) {
            sqlite3_finalize(statement);
            statement = nullptr;
        }
        sqlite3_close(db);
        db = nullptr;
    }
}

bool StoreConnection::Configure() {
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    if (RegisterNameCollation(db) != SQLITE_OK) return false;
    // WAL lets readers go on beside a writer, and with synchronous NORMAL a
    // commit is in the log before the call returns, so a killed writer
    // loses nothing it reported as saved.
    if (ExecPatiently(db, "PRAGMA journal_mode = WAL") != SQLITE_OK) return false;
    if (ExecPatiently(db, "PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON") != SQLITE_OK)
        return false;

    sqlite3_stmt *version = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA user_version", -1, &version, nullptr) != SQLITE_OK)
        return false;
    int step = sqlite3_step(version);
    const bool fresh = step == SQLITE_ROW && sqlite3_column_int(version, 0) == 0;
    sqlite3_finalize(version);
    if (step != SQLITE_ROW) return false;
    if (fresh) {
        const std::string create = std::string("BEGIN IMMEDIATE;") + kSchema + "COMMIT;";
        if (ExecPatiently(db, create.c_str()) != SQLITE_OK) {
            sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
            return false;
        }
    }
    for (int i = 0; i < static_cast<int>(Sql::Count); ++i)
        if (sqlite3_prepare_v3(db, kStatements[i], -1, SQLITE_PREPARE_PERSISTENT, &statements[i],
                               nullptr) != SQLITE_OK)
            return false;
    return true;
}

StoreConnection::~StoreConnection() {
    for (sqlite3_stmt *statement : statements) sqlite3_finalize(statement);
    if (db) sqlite3_close(db);
}

sqlite3_stmt *StoreConnection::Statement(Sql which) {
    sqlite3_stmt *statement = statements[static_cast<int>(which)];
    sqlite3_reset(statement);
    return statement;
}

void StoreConnection::RefreshKeyCache() {
    unsigned version = 0;
    if (sqlite3_file_control(db, "main", SQLITE_FCNTL_DATA_VERSION, &version) != SQLITE_OK ||
        version != dataVersion) {
        keyIds.clear();
        dataVersion = version;
    }
}

bool StoreConnection::CachedKey(const std::string &path, std::int64_t *id) const {
    auto found = keyIds.find(path);
    if (found == keyIds.end()) return false;
    *id = found->second;
    return true;
}

void StoreConnection::CacheKey(const std::string &path, std::int64_t id) {
    // A bound on memory for stores with very many keys.
    if (keyIds.size() >= 4096) keyIds.clear();
    keyIds.emplace(path, id);
}

namespace {

// How often a cached connection checks that its file is still the one at
// its path (deleted or replaced stores are opened anew).
constexpr auto kFileCheckInterval = std::chrono::seconds(1);

struct CachedConnection {
    std::string file;
    dev_t device = 0;
    ino_t inode = 0;
    std::chrono::steady_clock::time_point checked;
    std::unique_ptr<StoreConnection> connection;
};

// Counts forks in the child, so that a thread can tell cheaply whether its
// connections were made in this process.
std::atomic<unsigned> forkGeneration{0};

unsigned CurrentForkGeneration() {
    static const bool registered = [] {
        pthread_atfork(nullptr, nullptr, [] { forkGeneration.fetch_add(1, std::memory_order_relaxed); });
        return true;
    }();
    (void)registered;
    return forkGeneration.load(std::memory_order_relaxed);
}

// A thread's connections, the most recently used first.
struct ThreadConnections {
    unsigned generation = CurrentForkGeneration();
    std::vector<CachedConnection> open;

    ~ThreadConnections() {
        // Connections made before a fork belong to the parent process.
        if (generation != CurrentForkGeneration())
            for (CachedConnection &cached : open) (void)cached.connection.release();
    }
};

thread_local ThreadConnections threadConnections;

}  // namespace

StoreConnection *ConnectionFor(const std::string &file) {
    ThreadConnections &cache = threadConnections;
    if (cache.generation != CurrentForkGeneration()) {
        for (CachedConnection &cached : cache.open) (void)cached.connection.release();
        cache.open.clear();
        cache.generation = CurrentForkGeneration();
    }
    struct stat info {};
    const auto now = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < cache.open.size(); ++i) {
        CachedConnection &cached = cache.open[i];
        if (cached.file != file) continue;
        // A file deleted or replaced under us is a new store: open it anew.
        // Looking costs a system call, so it is done once in a while.
        bool same = now - cached.checked < kFileCheckInterval;
        if (!same && stat(file.c_str(), &info) == 0 && cached.device == info.st_dev &&
            cached.inode == info.st_ino) {
            same = true;
            cached.checked = now;
        }
        if (same) {
            if (i != 0) std::swap(cache.open[0], cache.open[i]);
            return cache.open[0].connection.get();
        }
        cache.open.erase(cache.open.begin() + static_cast<std::ptrdiff_t>(i));
        break;
    }
    auto connection = std::make_unique<StoreConnection>(file);
    if (!connection->ok()) {
        NoteStoreError(connection->error());
        return nullptr;
    }
    if (stat(file.c_str(), &info) != 0) {
        NoteStoreError("registry store " + file + " vanished while it was opened");
        return nullptr;
    }
    if (cache.open.size() >= kConnectionsPerThread) cache.open.pop_back();
    cache.open.insert(cache.open.begin(),
                      CachedConnection{file, info.st_dev, info.st_ino, now, std::move(connection)});
    return cache.open[0].connection.get();
}

}  // namespace qor::registry
