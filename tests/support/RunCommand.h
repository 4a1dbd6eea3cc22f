// Runs a command line through the shell, as a person at a terminal would, and
// keeps what it printed on both streams with its exit status: how the tests
// drive the command-line tools.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <ostream>
#include <string>

namespace qor_test {

struct Ran {
    int status = -1;  // the exit status; -1 when the command did not exit normally
    std::string out;  // standard output and error together

    bool operator==(const Ran &) const = default;
    // The last line printed, without its line break.
    std::string LastLine() const {
        const std::string text = out.substr(0, out.find_last_not_of('\n') + 1);
        return text.substr(text.rfind('\n') + 1);
    }
    friend std::ostream &operator<<(std::ostream &os, const Ran &ran) { return os << ran.status << ": " << ran.out; }
};

inline Ran RunCommand(const std::string &command) {
    Ran ran;
    FILE *pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return ran;
    char buffer[4096];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) ran.out.append(buffer, got);
    const int status = pclose(pipe);
    ran.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return ran;
}

#ifdef QOR_BINARY_DIR
// The qor command line of this build.
inline std::string QorTool() { return std::string(QOR_BINARY_DIR) + "/tools/qor"; }
inline bool QorToolIsBuilt() { return std::filesystem::exists(QorTool()); }
// Runs `qor ARGUMENTS`; the arguments are quoted for the shell by the caller.
inline Ran RunQor(const std::string &arguments) { return RunCommand(QorTool() + " " + arguments); }
#endif

}  // namespace qor_test
