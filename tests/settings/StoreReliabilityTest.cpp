// The store under a killed writer, racing processes and threads, and a lock
// held by a stranger.
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "SettingsTestSupport.h"
#include "qor/settings/Registry.h"
#include "qor/settings/StoreConnection.h"
#include "worker/StoreRace.h"

extern char **environ;

namespace {

using settings_test::TempHives;

// A worker process; with `piped` its stdout comes to `out`.
struct Worker {
    pid_t pid = -1;
    int out = -1;
};

Worker Spawn(const std::vector<std::string> &arguments, bool piped) {
    std::vector<char *> argv;
    std::string program = QOR_SETTINGS_WORKER;
    argv.push_back(program.data());
    for (const std::string &argument : arguments) argv.push_back(const_cast<char *>(argument.c_str()));
    argv.push_back(nullptr);
    int fds[2] = {-1, -1};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (piped) {
        EXPECT_EQ(pipe2(fds, O_CLOEXEC), 0);
        posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
    }
    Worker worker;
    EXPECT_EQ(posix_spawn(&worker.pid, program.c_str(), &actions, nullptr, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    if (piped) {
        close(fds[1]);
        worker.out = fds[0];
    }
    return worker;
}

// Reads whole lines of numbers from `fd`: at most `limit` of them, or all
// until the writer's end closes when limit is 0.
std::vector<unsigned long> ReadNumbers(int fd, std::string &pending, std::size_t limit) {
    std::vector<unsigned long> numbers;
    char buffer[4096];
    for (;;) {
        std::size_t cut;
        while ((limit == 0 || numbers.size() < limit) && (cut = pending.find('\n')) != std::string::npos) {
            numbers.push_back(std::stoul(pending.substr(0, cut)));
            pending.erase(0, cut + 1);
        }
        if (limit != 0 && numbers.size() >= limit) return numbers;
        const ssize_t got = read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return numbers;
        pending.append(buffer, static_cast<std::size_t>(got));
    }
}

// The first line of the store's own integrity check: "ok" when sound, "no
// store" when the file was never made.
std::string IntegrityCheck(const std::string &file) {
    if (access(file.c_str(), F_OK) != 0) return "no store";
    sqlite3 *db = nullptr;
    sqlite3_stmt *check = nullptr;
    std::string result = "cannot open";
    if (sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK) {
        qor::registry::RegisterNameCollation(db);  // the schema orders names by it
        result = "cannot check";
        if (sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &check, nullptr) == SQLITE_OK &&
            sqlite3_step(check) == SQLITE_ROW && sqlite3_column_text(check, 0))
            result = reinterpret_cast<const char *>(sqlite3_column_text(check, 0));
    }
    sqlite3_finalize(check);
    sqlite3_close(db);
    return result;
}

bool Holds(CRegistry &registry, unsigned long number) {
    const std::string key = "Crash\\K" + std::to_string(number % 5);
    const std::string name = "v" + std::to_string(number);
    if (number % 2) {
        unsigned long stored = 0;
        return registry.LoadKey(key.c_str(), name.c_str(), stored) && stored == number;
    }
    std::string stored;
    return registry.LoadKey(key.c_str(), name.c_str(), stored) && stored == std::to_string(number);
}

TEST(StoreCrashTest, AKilledWriterNeverDamagesTheStoreNorLosesAConfirmedSave) {
    TempHives hives;
    const std::string store = hives.File(HKEY_CURRENT_USER);
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    CRegistry registry;
    std::vector<unsigned long> confirmed;
    for (unsigned long round = 0; round < 60; ++round) {
        Worker worker = Spawn({"save", store, std::to_string(round * 1000000 + 1)}, true);
        std::string pending;
        // Killed after a random number of confirmed saves, 0 meaning while it
        // may still be opening the store.
        const std::size_t before = random() % 40;
        if (before) {
            std::vector<unsigned long> seen = ReadNumbers(worker.out, pending, before);
            confirmed.insert(confirmed.end(), seen.begin(), seen.end());
        }
        kill(worker.pid, SIGKILL);
        int status = 0;
        waitpid(worker.pid, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the writer stopped by itself";
        std::vector<unsigned long> rest = ReadNumbers(worker.out, pending, 0);
        confirmed.insert(confirmed.end(), rest.begin(), rest.end());
        close(worker.out);

        // A writer killed before it made the store confirmed nothing, so
        // nothing is lost; once the store exists it must always be sound.
        const std::string integrity = IntegrityCheck(store);
        if (!(confirmed.empty() && integrity == "no store")) {
            ASSERT_EQ(integrity, "ok") << "after round " << round;
        }
        for (unsigned long number : confirmed) ASSERT_TRUE(Holds(registry, number)) << number;
    }
    EXPECT_GT(confirmed.size(), 500u);
}

TEST(StoreRaceTest, ProcessesAndThreadsLoseNoUpdateAndNeverFailOnABusyStore) {
    TempHives hives;
    const std::string store = hives.File(HKEY_CURRENT_USER);
    CRegistry registry;
    ASSERT_EQ(registry.SaveKey("Race", "counter", 0ul), 1);
    constexpr int kThreads = 4, kRounds = 150;
    Worker first = Spawn({"race", store, "first", std::to_string(kThreads), std::to_string(kRounds)}, false);
    Worker second = Spawn({"race", store, "second", std::to_string(kThreads), std::to_string(kRounds)}, false);
    EXPECT_EQ(settings_test::Race("here", kThreads, kRounds), 0);
    for (Worker worker : {first, second}) {
        int status = 0;
        ASSERT_EQ(waitpid(worker.pid, &status, 0), worker.pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    unsigned long counter = 0;
    ASSERT_EQ(registry.LoadKey("Race", "counter", counter), 1);
    EXPECT_EQ(counter, 3ul * kThreads * kRounds);
    unsigned long owners = 0;
    EXPECT_EQ(registry.HasEntries("Race\\Own", nullptr, &owners), 1);
    EXPECT_EQ(owners, 3ul * kThreads);
    for (const char *tag : {"first", "second", "here"}) {
        for (int t = 0; t < kThreads; ++t) {
            unsigned long last = 0;
            const std::string own = std::string(tag) + "-" + std::to_string(t);
            ASSERT_EQ(registry.LoadKey("Race\\Own", own.c_str(), last), 1);
            EXPECT_EQ(last, static_cast<unsigned long>(kRounds - 1)) << own;
        }
    }
    EXPECT_EQ(IntegrityCheck(store), "ok");
}

TEST(StoreBusyTest, ASaveWaitsOutALockHeldLongerThanOneBusyTimeout) {
    TempHives hives;
    CRegistry registry;
    ASSERT_EQ(registry.SaveKey("Busy", "before", 1ul), 1);

    sqlite3 *stranger = nullptr;
    ASSERT_EQ(sqlite3_open(hives.File(HKEY_CURRENT_USER).c_str(), &stranger), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(stranger, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    // Readers are not held up by a writer.
    unsigned long before = 0;
    EXPECT_EQ(registry.LoadKey("Busy", "before", before), 1);

    auto save = std::async(std::launch::async, [&] { return registry.SaveKey("Busy", "during", 2ul); });
    // The save cannot finish while the lock is held; it is still waiting
    // after more than the store's busy timeout.
    EXPECT_EQ(save.wait_for(std::chrono::milliseconds(2500)), std::future_status::timeout);
    ASSERT_EQ(sqlite3_exec(stranger, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(stranger);
    EXPECT_EQ(save.get(), 1);
    unsigned long during = 0;
    EXPECT_EQ(registry.LoadKey("Busy", "during", during), 1);
    EXPECT_EQ(during, 2u);
}

}  // namespace
