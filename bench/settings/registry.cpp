// SaveKey and LoadKey against a raw SQLite loop doing the same work: one
// value written per transaction, one value read per query, with the store's
// own settings (WAL journal, synchronous NORMAL, a busy timeout). Prints the
// rate of each CRegistry call as a share of the raw loop's rate.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "qor/settings/Registry.h"
#include "support/BenchTimes.h"

namespace {

constexpr int kNames = 100;
const char *const kPath = "Software\\Qor\\Bench\\Device";

std::string &Folder() {
    static std::string folder = [] {
        std::string pattern = (std::filesystem::temp_directory_path() / "qor-settings-bench-XXXXXX").string();
        return std::string(mkdtemp(pattern.data()));
    }();
    return folder;
}

std::string ValueName(int i) { return "Value" + std::to_string(i % kNames); }

// The peer: a plain table of values by path and name, prepared statements,
// the same pragmas, BEGIN IMMEDIATE ... COMMIT around each write.
class RawStore {
public:
    RawStore() {
        sqlite3_open((Folder() + "/raw.db").c_str(), &db);
        sqlite3_busy_timeout(db, 2000);
        sqlite3_exec(db,
                     "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
                     "CREATE TABLE IF NOT EXISTS settings(path TEXT NOT NULL COLLATE NOCASE,"
                     " name TEXT NOT NULL COLLATE NOCASE, type INTEGER NOT NULL, data BLOB NOT NULL,"
                     " PRIMARY KEY(path, name))",
                     nullptr, nullptr, nullptr);
        Prepare("BEGIN IMMEDIATE", &begin);
        Prepare("COMMIT", &commit);
        Prepare("INSERT INTO settings(path, name, type, data) VALUES(?1, ?2, ?3, ?4)"
                " ON CONFLICT(path, name) DO UPDATE SET type = excluded.type, data = excluded.data",
                &upsert);
        Prepare("SELECT type, data FROM settings WHERE path = ?1 AND name = ?2", &select);
    }
    ~RawStore() {
        for (sqlite3_stmt *statement : {begin, commit, upsert, select}) sqlite3_finalize(statement);
        sqlite3_close(db);
    }
    bool Save(const char *path, const char *name, unsigned long value) {
        const unsigned char bytes[4] = {static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8),
                                        static_cast<unsigned char>(value >> 16),
                                        static_cast<unsigned char>(value >> 24)};
        if (Run(begin) != SQLITE_DONE) return false;
        sqlite3_bind_text(upsert, 1, path, -1, SQLITE_STATIC);
        sqlite3_bind_text(upsert, 2, name, -1, SQLITE_STATIC);
        sqlite3_bind_int(upsert, 3, 4);
        sqlite3_bind_blob(upsert, 4, bytes, 4, SQLITE_STATIC);
        const bool ok = Run(upsert) == SQLITE_DONE;
        return Run(commit) == SQLITE_DONE && ok;
    }
    bool Load(const char *path, const char *name, unsigned long &value) {
        sqlite3_reset(select);
        sqlite3_bind_text(select, 1, path, -1, SQLITE_STATIC);
        sqlite3_bind_text(select, 2, name, -1, SQLITE_STATIC);
        bool found = false;
        if (sqlite3_step(select) == SQLITE_ROW && sqlite3_column_int(select, 0) == 4 &&
            sqlite3_column_bytes(select, 1) >= 4) {
            const auto *bytes = static_cast<const unsigned char *>(sqlite3_column_blob(select, 1));
            value = bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<unsigned long>(bytes[3]) << 24;
            found = true;
        }
        sqlite3_reset(select);
        return found;
    }

private:
    void Prepare(const char *sql, sqlite3_stmt **statement) { sqlite3_prepare_v2(db, sql, -1, statement, nullptr); }
    static int Run(sqlite3_stmt *statement) {
        sqlite3_reset(statement);
        const int rc = sqlite3_step(statement);
        sqlite3_reset(statement);
        return rc;
    }
    sqlite3 *db = nullptr;
    sqlite3_stmt *begin = nullptr, *commit = nullptr, *upsert = nullptr, *select = nullptr;
};

RawStore &Raw() {
    static RawStore raw;
    return raw;
}

void Prefill() {
    CRegistry registry;
    for (int i = 0; i < kNames; ++i) {
        registry.SaveKey(kPath, ValueName(i).c_str(), static_cast<unsigned long>(i));
        Raw().Save(kPath, ValueName(i).c_str(), static_cast<unsigned long>(i));
    }
}

void SaveKey(benchmark::State &state) {
    CRegistry registry;
    int i = 0;
    for (auto _ : state) {
        if (!registry.SaveKey(kPath, ValueName(i).c_str(), static_cast<unsigned long>(i))) state.SkipWithError("save failed");
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

void RawSave(benchmark::State &state) {
    int i = 0;
    for (auto _ : state) {
        if (!Raw().Save(kPath, ValueName(i).c_str(), static_cast<unsigned long>(i))) state.SkipWithError("save failed");
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

void LoadKey(benchmark::State &state) {
    CRegistry registry;
    int i = 0;
    for (auto _ : state) {
        unsigned long value = 0;
        if (!registry.LoadKey(kPath, ValueName(i).c_str(), value)) state.SkipWithError("load failed");
        benchmark::DoNotOptimize(value);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

void RawLoad(benchmark::State &state) {
    int i = 0;
    for (auto _ : state) {
        unsigned long value = 0;
        if (!Raw().Load(kPath, ValueName(i).c_str(), value)) state.SkipWithError("load failed");
        benchmark::DoNotOptimize(value);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(SaveKey)->Unit(benchmark::kMicrosecond);
BENCHMARK(RawSave)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadKey)->Unit(benchmark::kMicrosecond);
BENCHMARK(RawLoad)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char **argv) {
    qor::SetRegistryHiveFile(HKEY_CURRENT_USER, Folder() + "/HKEY_CURRENT_USER.db");
    Prefill();
    bench::BestTimes times;
    bench::RunAll(argc, argv, times);

    const std::pair<const char *, const char *> pairs[] = {{"SaveKey", "RawSave"}, {"LoadKey", "RawLoad"}};
    std::printf("\nCRegistry rate / raw SQLite rate (goal: at least 0.50)\n");
    std::printf("  %-8s %-10s %s\n", "", "wall time", "CPU time");
    for (const auto &[ours, raw] : pairs) {
        if (times.WallRatio(raw, ours) == 0) continue;
        std::printf("  %-8s %-10.3f %.3f\n", ours, times.WallRatio(raw, ours), times.CpuRatio(raw, ours));
    }
    std::error_code ignored;
    std::filesystem::remove_all(Folder(), ignored);
    return 0;
}
