// qor-sim: a simulated instrument that speaks the device protocol over TCP
// (Ethernet frames) and over a pseudo-terminal (serial frames with CRC), for
// tests, the demo and driver writers. One thread, one poll loop.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <list>
#include <string>
#include <vector>

#include "Instrument.h"
#include "qor/comm/DeviceFrame.h"

namespace qorsim {
namespace {

const char kUsage[] =
    "usage: qor-sim [--tcp PORT] [--serial] [--bind ADDRESS] [--heartbeat MS]\n"
    "               [--log FILE] [--quiet] [--ignore-stdin]\n"
    "\n"
    "A simulated instrument speaking the Qor device protocol.\n"
    "\n"
    "  --tcp PORT       listen on TCP PORT (0 picks a free one) for Ethernet frames\n"
    "  --serial         open a pseudo-terminal for serial frames; connect a serial\n"
    "                   link to the device path printed on the ready line\n"
    "  --bind ADDRESS   address to listen on (default 127.0.0.1)\n"
    "  --heartbeat MS   send a heartbeat request every MS ms on each link (default\n"
    "                   1000; 0 turns them off). On the serial line they start once\n"
    "                   the host has sent a first frame.\n"
    "  --log FILE       log every frame seen and sent to FILE (default: stderr)\n"
    "  --quiet          no frame log\n"
    "  --ignore-stdin   keep running at end of input (by default the simulator\n"
    "                   stops when its standard input closes)\n"
    "\n"
    "With neither --tcp nor --serial, --tcp 0 is assumed. When every endpoint is\n"
    "open, one line goes to standard output, for instance\n"
    "  qor-sim ready tcp=127.0.0.1:41234 serial=/dev/pts/7\n"
    "The simulator stops cleanly on SIGTERM, SIGINT or the end of its input.\n"
    "\n";

using Clock = std::chrono::steady_clock;

int g_signalPipe[2] = {-1, -1};

void OnSignal(int) {
    char byte = 1;
    ssize_t ignored = ::write(g_signalPipe[1], &byte, 1);
    (void)ignored;
}

struct Options {
    bool tcp = false;
    unsigned tcpPort = 0;
    bool serial = false;
    std::string bind = "127.0.0.1";
    unsigned heartbeatMs = 1000;
    std::string logFile;
    bool quiet = false;
    bool ignoreStdin = false;
};

class Log {
public:
    void Open(const Options &options) {
        if (options.quiet) return;
        file = stderr;
        if (!options.logFile.empty()) {
            file = std::fopen(options.logFile.c_str(), "a");
            if (!file) {
                std::fprintf(stderr, "qor-sim: cannot open log %s: %s\n", options.logFile.c_str(),
                             std::strerror(errno));
                file = stderr;
            }
        }
    }
    void Line(const std::string &link, const char *what, const std::string &text) {
        if (!file) return;
        std::fprintf(file, "qor-sim: %s %s %s\n", link.c_str(), what, text.c_str());
        std::fflush(file);
    }
    ~Log() {
        if (file && file != stderr) std::fclose(file);
    }

private:
    std::FILE *file = nullptr;
};

// One connection to a host: a TCP client or the pseudo-terminal.
struct Link {
    int id;
    int fd;
    bool serial;
    std::string name;
    std::vector<unsigned char> input;
    LinkState state;
    bool heard = false;  // the host has sent a frame (serial heartbeats wait for it)
    bool closing = false;
    Clock::time_point nextHeartbeat;
};

struct DelayedReply {
    Clock::time_point due;
    int linkId;
    unsigned char command;
    std::vector<unsigned char> payload;
    bool longFrame;
};

class Simulator {
public:
    explicit Simulator(const Options &options) : options(options) { log.Open(options); }

    int Run();

private:
    bool OpenTcp(std::string &endpoint);
    bool OpenSerial(std::string &endpoint);
    void Accept();
    void Receive(Link &link);
    void ParseEthernet(Link &link);
    void ParseSerial(Link &link);
    void Dispatch(Link &link, unsigned char command, const std::vector<unsigned char> &payload,
                  bool longFrame);
    void Send(Link &link, unsigned char command, const std::vector<unsigned char> &payload,
              bool longFrame);
    void SendRaw(Link &link, const std::vector<unsigned char> &bytes);
    void Heartbeat(Link &link);
    void RunTimers();
    int NextTimeoutMs() const;
    Link *FindLink(int id);

    Options options;
    Log log;
    Instrument instrument;
    int listener = -1;
    int ptySlaveHolder = -1;
    std::list<Link> links;
    std::vector<DelayedReply> delayed;
    int nextId = 1;
    bool stdinOpen = true;
};

bool Simulator::OpenTcp(std::string &endpoint) {
    listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (listener < 0) return false;
    int yes = 1;
    ::setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(options.tcpPort));
    if (::inet_pton(AF_INET, options.bind.c_str(), &address.sin_addr) != 1) {
        std::fprintf(stderr, "qor-sim: not an IPv4 address: %s\n", options.bind.c_str());
        return false;
    }
    if (::bind(listener, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0 ||
        ::listen(listener, 16) != 0) {
        std::fprintf(stderr, "qor-sim: cannot listen on %s:%u: %s\n", options.bind.c_str(),
                     options.tcpPort, std::strerror(errno));
        return false;
    }
    socklen_t size = sizeof address;
    ::getsockname(listener, reinterpret_cast<sockaddr *>(&address), &size);
    endpoint = "tcp=" + options.bind + ":" + std::to_string(ntohs(address.sin_port));
    return true;
}

bool Simulator::OpenSerial(std::string &endpoint) {
    int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0) {
        std::fprintf(stderr, "qor-sim: cannot open a pseudo-terminal: %s\n", std::strerror(errno));
        return false;
    }
    const char *path = ::ptsname(master);
    std::string slavePath = path ? path : "";
    // Holding the other end open keeps the line up between host sessions, and
    // a raw line keeps the kernel from echoing our frames back to us.
    ptySlaveHolder = ::open(slavePath.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (ptySlaveHolder < 0) return false;
    termios raw{};
    ::tcgetattr(ptySlaveHolder, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(ptySlaveHolder, TCSANOW, &raw);
    ::fcntl(master, F_SETFL, ::fcntl(master, F_GETFL) | O_NONBLOCK);
    links.push_back(Link{nextId++, master, true, "serial", {}, {}, false, false, Clock::now()});
    endpoint = "serial=" + slavePath;
    return true;
}

void Simulator::Accept() {
    int client = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) return;
    int yes = 1;
    ::setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    int id = nextId++;
    links.push_back(Link{id, client, false, "tcp#" + std::to_string(id), {}, {}, true, false,
                         Clock::now() + std::chrono::milliseconds(options.heartbeatMs)});
    log.Line(links.back().name, "connected", "");
}

void Simulator::Receive(Link &link) {
    unsigned char buffer[65536];
    ssize_t n = ::read(link.fd, buffer, sizeof buffer);
    if (n < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (n <= 0) {
        if (!link.serial) {
            log.Line(link.name, "closed", "");
            link.closing = true;
        }
        return;
    }
    link.input.insert(link.input.end(), buffer, buffer + n);
    if (link.serial)
        ParseSerial(link);
    else
        ParseEthernet(link);
}

void Simulator::ParseEthernet(Link &link) {
    std::size_t at = 0;
    while (link.input.size() - at >= qor::kEthernetHeaderSize) {
        const unsigned char *frame = link.input.data() + at;
        std::size_t length = frame[1] | (frame[2] << 8);
        if (link.input.size() - at < qor::kEthernetHeaderSize + length) break;
        std::vector<unsigned char> payload(frame + 3, frame + 3 + length);
        at += qor::kEthernetHeaderSize + length;
        Dispatch(link, frame[0], payload, true);
        if (link.closing) break;
    }
    link.input.erase(link.input.begin(), link.input.begin() + static_cast<long>(at));
}

void Simulator::ParseSerial(Link &link) {
    std::size_t at = 0;
    while (at < link.input.size()) {
        std::size_t frameSize = 0;
        qor::SerialScan scan =
            qor::ScanSerialFrame(link.input.data() + at, link.input.size() - at, frameSize);
        if (scan == qor::SerialScan::NeedMore) break;
        if (scan == qor::SerialScan::NotAFrame) {
            // Not the start of a frame: skip to the next start byte.
            std::size_t next = at + 1;
            while (next < link.input.size() && link.input[next] != qor::kSerialStartByte) ++next;
            log.Line(link.name, "garbage", std::to_string(next - at) + " bytes");
            instrument.CountBadFrame();
            at = next;
            continue;
        }
        qor::DecodedSerialFrame decoded;
        qor::DecodeSerialFrame(link.input.data() + at, frameSize, decoded);
        at += frameSize;
        if (!decoded.checksumOk) {
            log.Line(link.name, "bad checksum", DescribeFrame(decoded.command, decoded.payload));
            instrument.CountBadFrame();
            continue;
        }
        if (!link.heard) {
            link.heard = true;
            link.nextHeartbeat = Clock::now() + std::chrono::milliseconds(options.heartbeatMs);
        }
        Dispatch(link, decoded.command, decoded.payload, decoded.longFrame);
    }
    link.input.erase(link.input.begin(), link.input.begin() + static_cast<long>(at));
}

void Simulator::Dispatch(Link &link, unsigned char command, const std::vector<unsigned char> &payload,
                         bool longFrame) {
    log.Line(link.name, "rx", DescribeFrame(command, payload));
    for (Action &action : instrument.Handle(link.state, command, payload)) {
        switch (action.kind) {
        case Action::Reply:
            if (action.delayMs == 0)
                Send(link, action.command, action.payload, longFrame);
            else
                delayed.push_back({Clock::now() + std::chrono::milliseconds(action.delayMs), link.id,
                                   action.command, std::move(action.payload), longFrame});
            break;
        case Action::Heartbeat:
            Heartbeat(link);
            break;
        case Action::Stall: {
            // A frame that announces 16 payload bytes and brings 4.
            std::vector<unsigned char> frame =
                link.serial ? qor::EncodeSerialFrame(action.command, std::vector<unsigned char>(16), false)
                            : qor::EncodeEthernetFrame(action.command, std::vector<unsigned char>(16));
            frame.resize(7);  // the header and 4 of the 16 bytes
            log.Line(link.name, "tx", "start of a frame, then silence");
            SendRaw(link, frame);
            break;
        }
        case Action::HangUp:
            if (!link.serial) {
                log.Line(link.name, "hang-up", "");
                link.closing = true;
            }
            break;
        }
    }
}

void Simulator::Send(Link &link, unsigned char command, const std::vector<unsigned char> &payload,
                     bool longFrame) {
    log.Line(link.name, "tx", DescribeFrame(command, payload));
    SendRaw(link, link.serial ? qor::EncodeSerialFrame(command, payload, longFrame)
                              : qor::EncodeEthernetFrame(command, payload));
}

void Simulator::SendRaw(Link &link, const std::vector<unsigned char> &bytes) {
    std::size_t done = 0;
    auto giveUp = Clock::now() + std::chrono::seconds(1);
    while (done < bytes.size()) {
        ssize_t n = ::send(link.fd, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (n < 0 && errno == ENOTSOCK) n = ::write(link.fd, bytes.data() + done, bytes.size() - done);
        if (n > 0) {
            done += static_cast<std::size_t>(n);
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        if (n < 0 && errno == EAGAIN && Clock::now() < giveUp) {
            pollfd waiter{link.fd, POLLOUT, 0};
            ::poll(&waiter, 1, 50);
            continue;
        }
        log.Line(link.name, "send failed", std::strerror(errno));
        if (!link.serial) link.closing = true;
        return;
    }
}

void Simulator::Heartbeat(Link &link) {
    instrument.CountHeartbeatSent();
    Send(link, qor::kHeartbeatRequest, {}, false);
}

Link *Simulator::FindLink(int id) {
    for (Link &link : links)
        if (link.id == id && !link.closing) return &link;
    return nullptr;
}

void Simulator::RunTimers() {
    auto now = Clock::now();
    std::vector<DelayedReply> due;
    for (auto it = delayed.begin(); it != delayed.end();) {
        if (it->due <= now) {
            due.push_back(std::move(*it));
            it = delayed.erase(it);
        } else {
            ++it;
        }
    }
    for (DelayedReply &reply : due)
        if (Link *link = FindLink(reply.linkId)) Send(*link, reply.command, reply.payload, reply.longFrame);
    if (options.heartbeatMs == 0) return;
    for (Link &link : links) {
        if (link.closing || !link.heard || link.nextHeartbeat > now) continue;
        Heartbeat(link);
        link.nextHeartbeat = now + std::chrono::milliseconds(options.heartbeatMs);
    }
}

int Simulator::NextTimeoutMs() const {
    auto now = Clock::now();
    auto next = now + std::chrono::seconds(1);
    for (const DelayedReply &reply : delayed) next = std::min(next, reply.due);
    if (options.heartbeatMs != 0)
        for (const Link &link : links)
            if (link.heard && !link.closing) next = std::min(next, link.nextHeartbeat);
    auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(next - now).count();
    return static_cast<int>(std::max<long long>(wait, 0) + (next > now ? 1 : 0));
}

int Simulator::Run() {
    std::string ready = "qor-sim ready";
    std::string endpoint;
    if (options.tcp) {
        if (!OpenTcp(endpoint)) return 1;
        ready += " " + endpoint;
    }
    if (options.serial) {
        if (!OpenSerial(endpoint)) return 1;
        ready += " " + endpoint;
    }
    std::printf("%s\n", ready.c_str());
    std::fflush(stdout);

    for (;;) {
        std::vector<pollfd> waiters;
        waiters.push_back({g_signalPipe[0], POLLIN, 0});
        waiters.push_back({stdinOpen && !options.ignoreStdin ? 0 : -1, POLLIN, 0});
        waiters.push_back({listener, POLLIN, 0});
        for (const Link &link : links) waiters.push_back({link.fd, POLLIN, 0});
        int ready = ::poll(waiters.data(), waiters.size(), NextTimeoutMs());
        if (ready < 0 && errno != EINTR) break;
        if (waiters[0].revents) break;
        if (waiters[1].revents) {
            char buffer[256];
            if (::read(0, buffer, sizeof buffer) <= 0) break;
        }
        if (waiters[2].revents & POLLIN) Accept();
        std::size_t index = 3;
        for (Link &link : links) {
            if (index >= waiters.size()) break;
            short events = waiters[index++].revents;
            if (events & (POLLIN | POLLHUP | POLLERR)) {
                if (link.serial && !(events & POLLIN)) continue;  // host side closed; wait for the next
                Receive(link);
            }
        }
        RunTimers();
        for (auto it = links.begin(); it != links.end();) {
            if (it->closing) {
                ::close(it->fd);
                it = links.erase(it);
            } else {
                ++it;
            }
        }
    }

    const Counters &stats = instrument.Stats();
    log.Line("sim", "stopping",
             "frames=" + std::to_string(stats.frames) + " heartbeats-sent=" +
                 std::to_string(stats.heartbeatsSent) + " heartbeat-replies=" +
                 std::to_string(stats.heartbeatReplies) + " bad=" + std::to_string(stats.badFrames));
    for (Link &link : links) ::close(link.fd);
    if (listener >= 0) ::close(listener);
    if (ptySlaveHolder >= 0) ::close(ptySlaveHolder);
    return 0;
}

bool ParseNumber(const char *text, unsigned long max, unsigned &value) {
    char *end = nullptr;
    errno = 0;
    unsigned long parsed = std::strtoul(text, &end, 10);
    if (errno || !end || *end || end == text || parsed > max) return false;
    value = static_cast<unsigned>(parsed);
    return true;
}

int Usage(const char *problem) {
    std::fprintf(stderr, "qor-sim: %s (see qor-sim --help)\n", problem);
    return 2;
}

}  // namespace
}  // namespace qorsim

int main(int argc, char **argv) {
    using namespace qorsim;
    Options options;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        auto value = [&](const char *name) -> const char * {
            if (i + 1 >= argc) return nullptr;
            (void)name;
            return argv[++i];
        };
        if (arg == "-h" || arg == "--help") {
            std::fputs(kUsage, stdout);
            std::fputs(kCommandHelp, stdout);
            return 0;
        } else if (arg == "--tcp") {
            const char *text = value("--tcp");
            if (!text || !ParseNumber(text, 65535, options.tcpPort)) return Usage("--tcp needs a port number");
            options.tcp = true;
        } else if (arg == "--serial") {
            options.serial = true;
        } else if (arg == "--bind") {
            const char *text = value("--bind");
            if (!text) return Usage("--bind needs an address");
            options.bind = text;
        } else if (arg == "--heartbeat") {
            const char *text = value("--heartbeat");
            if (!text || !ParseNumber(text, 3600000, options.heartbeatMs))
                return Usage("--heartbeat needs a number of milliseconds");
        } else if (arg == "--log") {
            const char *text = value("--log");
            if (!text) return Usage("--log needs a file name");
            options.logFile = text;
        } else if (arg == "--quiet") {
            options.quiet = true;
        } else if (arg == "--ignore-stdin") {
            options.ignoreStdin = true;
        } else {
            return Usage(("unknown option " + arg).c_str());
        }
    }
    if (!options.tcp && !options.serial) options.tcp = true;

    if (::pipe2(g_signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return 1;
    struct sigaction action {};
    action.sa_handler = OnSignal;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGTERM, &action, nullptr);
    ::sigaction(SIGINT, &action, nullptr);
    ::signal(SIGPIPE, SIG_IGN);

    Simulator simulator(options);
    return simulator.Run();
}
