// Pseudo-terminal pairs standing in for serial lines.
#pragma once

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <string>

#include "CommTestSupport.h"
#include "qor/comm/SerialPorts.h"

namespace serial_test {

// A port number of its own for each line a test makes.
inline unsigned NextPort() {
    static std::atomic<unsigned> next{300};
    return next++;
}

// One pseudo-terminal: the test plays the device on `master`, the code under
// test opens `path` through port number `port`.
class PtyLine {
public:
    PtyLine() {
        termios raw{};
        ::cfmakeraw(&raw);
        char name[256] = {};
        if (::openpty(&master, &slave, name, &raw, nullptr) != 0) return;
        ::fcntl(master, F_SETFD, FD_CLOEXEC);
        ::fcntl(slave, F_SETFD, FD_CLOEXEC);
        path = name;
        port = NextPort();
        qor::SetSerialPortPath(port, path);
    }
    ~PtyLine() {
        CloseMaster();
        if (slave >= 0) ::close(slave);
        qor::SetSerialPortPath(port, "");
    }
    PtyLine(const PtyLine &) = delete;
    PtyLine &operator=(const PtyLine &) = delete;

    bool Ok() const { return master >= 0; }

    void Write(const std::string &bytes) const {
        std::size_t done = 0;
        while (done < bytes.size()) {
            ssize_t n = ::write(master, bytes.data() + done, bytes.size() - done);
            if (n <= 0) return;
            done += static_cast<std::size_t>(n);
        }
    }

    // Reads until `count` bytes came or `timeoutMs` passed.
    std::string Read(std::size_t count, int timeoutMs = 2000) const {
        return comm_test::ReadUpTo(master, count, timeoutMs);
    }

    void CloseMaster() {
        if (master >= 0) ::close(master);
        master = -1;
    }

    int master = -1;
    int slave = -1;
    std::string path;
    unsigned port = 0;
};

inline std::string Bytes(std::initializer_list<int> values) {
    std::string out;
    for (int v : values) out.push_back(static_cast<char>(v));
    return out;
}

}  // namespace serial_test
