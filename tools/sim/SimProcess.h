// Runs qor-sim as a child process: starts it, waits for its ready line, tells
// where it listens, and stops it by closing its input (or by a signal). Used by
// the tests, the demo and the benchmarks; header-only, POSIX.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

extern char **environ;

namespace qorsim {

class SimProcess {
public:
    SimProcess() = default;
    SimProcess(const SimProcess &) = delete;
    SimProcess &operator=(const SimProcess &) = delete;
    ~SimProcess() { Stop(); }

    // Starts `program` with `args` and waits up to `readyMs` for its ready
    // line. On failure `error` says why and nothing is left running.
    bool Start(const std::string &program, const std::vector<std::string> &args, int readyMs = 10000) {
        int input[2], output[2];
        if (::pipe2(input, O_CLOEXEC) != 0) return Fail("pipe: " + std::string(std::strerror(errno)));
        if (::pipe2(output, O_CLOEXEC) != 0) {
            ::close(input[0]);
            ::close(input[1]);
            return Fail("pipe: " + std::string(std::strerror(errno)));
        }
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, input[0], 0);
        posix_spawn_file_actions_adddup2(&actions, output[1], 1);
        std::vector<char *> argv;
        argv.push_back(const_cast<char *>(program.c_str()));
        for (const std::string &arg : args) argv.push_back(const_cast<char *>(arg.c_str()));
        argv.push_back(nullptr);
        int spawned = ::posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        ::close(input[0]);
        ::close(output[1]);
        toChild = input[1];
        fromChild = output[0];
        if (spawned != 0) {
            pid = -1;
            Close();
            return Fail("cannot start " + program + ": " + std::strerror(spawned));
        }
        if (!ReadReadyLine(readyMs)) {
            Stop();
            return false;
        }
        return true;
    }

    // Closes the simulator's input, which ends it, and reaps it; kills it if
    // it hangs. Returns its exit status, or -1 if it did not exit by itself.
    int Stop() { return Finish(0); }
    // Sends `signal` and reaps the simulator.
    int Terminate(int signal) { return Finish(signal); }

    bool Running() const { return pid > 0; }
    const std::string &ReadyLine() const { return readyLine; }
    std::string TcpHost() const { return Field("tcp=", ':'); }
    unsigned TcpPort() const {
        std::string endpoint = Field("tcp=", ' ');
        std::size_t colon = endpoint.rfind(':');
        return colon == std::string::npos ? 0u : static_cast<unsigned>(std::atoi(endpoint.c_str() + colon + 1));
    }
    std::string SerialPath() const { return Field("serial=", ' '); }

    std::string error;

private:
    bool Fail(const std::string &why) {
        error = why;
        return false;
    }

    bool ReadReadyLine(int readyMs) {
        auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(readyMs);
        std::string text;
        for (;;) {
            std::size_t newline = text.find('\n');
            if (newline != std::string::npos) {
                readyLine = text.substr(0, newline);
                if (readyLine.rfind("qor-sim ready", 0) == 0) return true;
                return Fail("unexpected first line from the simulator: " + readyLine);
            }
            auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
            if (left <= 0) return Fail("the simulator did not report ready");
            pollfd waiter{fromChild, POLLIN, 0};
            if (::poll(&waiter, 1, static_cast<int>(left)) < 0 && errno != EINTR) return Fail("poll failed");
            char buffer[256];
            ssize_t n = ::read(fromChild, buffer, sizeof buffer);
            if (n == 0) return Fail("the simulator ended before it was ready");
            if (n > 0) text.append(buffer, static_cast<std::size_t>(n));
        }
    }

    std::string Field(const char *key, char stop) const {
        std::size_t at = readyLine.find(key);
        if (at == std::string::npos) return std::string();
        at += std::strlen(key);
        std::size_t end = readyLine.find(stop, at);
        return readyLine.substr(at, end == std::string::npos ? std::string::npos : end - at);
    }

    int Finish(int signal) {
        if (pid <= 0) {
            Close();
            return -1;
        }
        if (signal)
            ::kill(pid, signal);
        else if (toChild >= 0) {
            ::close(toChild);
            toChild = -1;
        }
        int status = 0;
        auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        pid_t done = 0;
        while ((done = ::waitpid(pid, &status, WNOHANG)) == 0 && std::chrono::steady_clock::now() < end) {
            // Reaping has no descriptor to wait on; the child exits within
            // milliseconds of its input closing, so look often.
            pollfd waiter{fromChild, POLLIN, 0};
            ::poll(&waiter, 1, 5);
            char drain[256];
            if (waiter.revents & POLLIN) ::read(fromChild, drain, sizeof drain);
        }
        if (done == 0) {
            ::kill(pid, SIGKILL);
            ::waitpid(pid, &status, 0);
            status = -1;
        } else {
            status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        pid = -1;
        Close();
        return status;
    }

    void Close() {
        if (toChild >= 0) ::close(toChild);
        if (fromChild >= 0) ::close(fromChild);
        toChild = fromChild = -1;
    }

    pid_t pid = -1;
    int toChild = -1;
    int fromChild = -1;
    std::string readyLine;
};

}  // namespace qorsim
