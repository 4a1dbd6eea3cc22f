// Runs the qor command line as a user would, for the tests of its verbs.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace record_test {

struct Outcome {
    int status;
    std::string output;  // stdout, then stderr
};

inline std::string QorBinary() { return std::string(QOR_BINARY_DIR) + "/tools/qor"; }

inline bool QorIsBuilt() { return std::filesystem::exists(QorBinary()); }

inline Outcome RunQor(const std::string &arguments) {
    Outcome outcome{-1, ""};
    FILE *pipe = popen((QorBinary() + " " + arguments + " 2>&1").c_str(), "r");
    if (!pipe) return outcome;
    char buffer[4096];
    std::size_t n;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) outcome.output.append(buffer, n);
    const int status = pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

}  // namespace record_test
