#include "qor/comm/SerialPorts.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <mutex>

namespace qor {
namespace {

struct SerialPortMap {
    std::mutex lock;
    std::map<unsigned, std::string> paths;
};

SerialPortMap &PortMap() {
    static SerialPortMap map;
    return map;
}

// A port exists when its device is a terminal we can open, or when the system
// refuses us in a way that says the device is there.
bool SerialDeviceExists(const std::string &path) {
    int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return errno == EACCES || errno == EBUSY || errno == EPERM;
    termios settings{};
    bool terminal = ::tcgetattr(fd, &settings) == 0;
    ::close(fd);
    return terminal;
}

}  // namespace

void SetSerialPortPath(unsigned port, const std::string &path) {
    SerialPortMap &map = PortMap();
    std::lock_guard<std::mutex> guard(map.lock);
    if (path.empty())
        map.paths.erase(port);
    else
        map.paths[port] = path;
}

std::string SerialPortPath(unsigned port) {
    SerialPortMap &map = PortMap();
    {
        std::lock_guard<std::mutex> guard(map.lock);
        auto found = map.paths.find(port);
        if (found != map.paths.end()) return found->second;
    }
    if (port == 0) return std::string();
    return "/dev/ttyS" + std::to_string(port - 1);
}

void EnumerateSerialPorts(std::vector<int> &ports) {
    ports.clear();
    for (unsigned port = 1; port <= 255; ++port)
        if (SerialDeviceExists(SerialPortPath(port))) ports.push_back(static_cast<int>(port));
    {
        SerialPortMap &map = PortMap();
        std::lock_guard<std::mutex> guard(map.lock);
        for (const auto &[port, path] : map.paths)
            if (port > 255 && SerialDeviceExists(path)) ports.push_back(static_cast<int>(port));
    }
    std::sort(ports.begin(), ports.end());
    ports.erase(std::unique(ports.begin(), ports.end()), ports.end());
}

}  // namespace qor
