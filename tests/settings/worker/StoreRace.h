// The racing workload of the concurrency test, run by the test's own
// threads and by worker processes alike.
#pragma once

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "qor/platform/Waitable.h"
#include "qor/settings/Registry.h"

namespace settings_test {

// THREADS threads of ROUNDS rounds: one increment of Race\counter under the
// registry mutex, a save and read-back of the thread's own value, and a save
// and load of a value every thread writes. Returns 0 when no call failed.
inline int Race(const std::string &tag, int threads, int rounds) {
    std::atomic<int> failures{0};
    auto fail = [&](const std::string &what) {
        std::fprintf(stderr, "%s: %s failed\n", tag.c_str(), what.c_str());
        ++failures;
    };
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&, t] {
            CRegistry registry;
            HANDLE mutex = CreateMutex(nullptr, FALSE, "Qor Registry Mutex");
            const std::string own = tag + "-" + std::to_string(t);
            for (int round = 0; round < rounds; ++round) {
                // Read, add one, write back: only the registry mutex, held
                // across both calls, keeps increments from getting lost.
                if (WaitForSingleObject(mutex, INFINITE) != WAIT_OBJECT_0) fail("wait");
                unsigned long counter = 0;
                if (!registry.LoadKey("Race", "counter", counter)) fail("load of counter");
                if (!registry.SaveKey("Race", "counter", counter + 1)) fail("save of counter");
                ReleaseMutex(mutex);

                if (!registry.SaveKey("Race\\Own", own.c_str(), static_cast<unsigned long>(round)))
                    fail("save of " + own);
                unsigned long mine = 0;
                if (!registry.LoadKey("Race\\Own", own.c_str(), mine) || mine != static_cast<unsigned long>(round))
                    fail("read back of " + own);
                if (!registry.SaveKey("Race", "last", own.c_str())) fail("save of last");
                std::string last;
                if (!registry.LoadKey("Race", "last", last)) fail("load of last");
            }
            CloseHandle(mutex);
        });
    }
    for (std::thread &worker : workers) worker.join();
    return failures ? 1 : 0;
}

}  // namespace settings_test
