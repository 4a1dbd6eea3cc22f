// settings_store_worker: a process that uses the registry store while a test
// watches it.
//
//   settings_store_worker save STORE FIRST
//       saves numbered values without end, starting at FIRST, and writes each
//       number to stdout once its SaveKey has returned 1.
//   settings_store_worker race STORE TAG THREADS ROUNDS
//       runs THREADS threads of ROUNDS rounds each: one increment of the
//       shared counter under the registry mutex, a save of the thread's own
//       value, and reads of both. Exits 0 when no call failed.
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "qor/platform/Waitable.h"
#include "qor/settings/Registry.h"
#include "StoreRace.h"

namespace {

void Confirm(unsigned long number) {
    const std::string line = std::to_string(number) + "\n";
    // One short write to a pipe arrives whole or not at all.
    if (write(STDOUT_FILENO, line.data(), line.size()) != static_cast<ssize_t>(line.size())) _exit(3);
}

int SaveForever(unsigned long first) {
    CRegistry registry;
    for (unsigned long number = first;; ++number) {
        const std::string key = "Crash\\K" + std::to_string(number % 5);
        const std::string name = "v" + std::to_string(number);
        int saved = number % 2 ? registry.SaveKey(key.c_str(), name.c_str(), number)
                               : registry.SaveKey(key.c_str(), name.c_str(), std::to_string(number).c_str());
        if (!saved) {
            std::fprintf(stderr, "save of %lu failed\n", number);
            return 1;
        }
        Confirm(number);
    }
}

}  // namespace

int main(int argc, char **argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "save" && argc == 4) {
        qor::SetRegistryHiveFile(HKEY_CURRENT_USER, argv[2]);
        return SaveForever(std::strtoul(argv[3], nullptr, 10));
    }
    if (mode == "race" && argc == 6) {
        qor::SetRegistryHiveFile(HKEY_CURRENT_USER, argv[2]);
        return settings_test::Race(argv[3], std::atoi(argv[4]), std::atoi(argv[5]));
    }
    std::fprintf(stderr, "usage: settings_store_worker save STORE FIRST | race STORE TAG THREADS ROUNDS\n");
    return 2;
}
