// Shared helpers of the device-communication tests: counts of open descriptors
// and threads that tell whether something leaked, bounded waits for a
// condition, a loopback TCP peer that plays an instrument, and a subscriber
// that records what it hears.
#pragma once

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <dirent.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "qor/comm/QorDeviceComm.h"

namespace comm_test {

inline int CountEntries(const char *folder) {
    int count = 0;
    if (DIR *dir = ::opendir(folder)) {
        while (dirent *entry = ::readdir(dir))
            if (entry->d_name[0] != '.') ++count;
        ::closedir(dir);
    }
    return count;
}

// Open descriptors of this process (the listing's own descriptor excluded).
inline int OpenDescriptors() { return CountEntries("/proc/self/fd") - 1; }
// Threads of this process.
inline int LiveThreads() { return CountEntries("/proc/self/task"); }

// Waits until `condition` holds, looking every millisecond; false when it
// still does not after `limitMs` (a bound against hanging, not a timing check).
inline bool WaitUntil(const std::function<bool()> &condition, int limitMs = 5000) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

// Notes descriptors and threads at construction; Clean() says whether both
// came back to those numbers (threads end a moment after they are joined).
class ResourceCheck {
public:
    ResourceCheck() : descriptors_((WarmUp(), OpenDescriptors())), threads_(LiveThreads()) {}
    bool Clean() const {
        return WaitUntil([&] {
            return OpenDescriptors() <= descriptors_ && LiveThreads() <= threads_;
        });
    }
    std::string Report() const {
        return "descriptors " + std::to_string(descriptors_) + " -> " +
               std::to_string(OpenDescriptors()) + ", threads " + std::to_string(threads_) +
               " -> " + std::to_string(LiveThreads());
    }

private:
    // A sanitizer starts a helper thread of its own with the process's
    // second thread: start one before the first count, so it isn't taken for
    // a leak.
    static int WarmUp() {
        static const int once = [] {
            std::thread([] {}).join();
            return 0;
        }();
        return once;
    }

    int descriptors_;
    int threads_;
};

// Runs `body` and expects descriptors and threads back where they were.
inline void ExpectNoLeak(const std::function<void()> &body) {
    ResourceCheck resources;
    body();
    EXPECT_TRUE(resources.Clean()) << resources.Report();
}

// The message of the E that `run` throws; "(nothing thrown)" when it returns.
template <class E, class F>
std::string ThrownMessage(F run) {
    try {
        run();
    } catch (const E &e) {
        return e.message;
    }
    return "(nothing thrown)";
}

// A one-shot signal between test threads.
class Signal {
public:
    void Set() {
        std::lock_guard<std::mutex> guard(mutex_);
        set_ = true;
        changed_.notify_all();
    }
    bool Wait(int limitMs = 5000) {
        std::unique_lock<std::mutex> guard(mutex_);
        return changed_.wait_for(guard, std::chrono::milliseconds(limitMs), [&] { return set_; });
    }
    bool IsSet() {
        std::lock_guard<std::mutex> guard(mutex_);
        return set_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool set_ = false;
};

using Bytes = std::vector<unsigned char>;

// Writes all of `bytes`; false when the peer is gone.
inline bool WriteAll(int fd, const Bytes &bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::send(fd, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (n <= 0) return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

// Reads until `count` bytes came or `limitMs` passed, the end or an error.
inline std::string ReadUpTo(int fd, std::size_t count, int limitMs) {
    std::string got;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
    while (got.size() < count) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                              end - std::chrono::steady_clock::now())
                              .count();
        if (left <= 0) break;
        pollfd p = {fd, POLLIN, 0};
        if (::poll(&p, 1, static_cast<int>(left)) <= 0) break;
        char buffer[4096];
        const ssize_t n = ::read(fd, buffer, std::min(sizeof buffer, count - got.size()));
        if (n <= 0) break;
        got.append(buffer, static_cast<std::size_t>(n));
    }
    return got;
}

// Reads exactly `count` bytes within `limitMs`; false on end, error or time.
inline bool ReadExactly(int fd, std::size_t count, Bytes &out, int limitMs = 5000) {
    const std::string got = ReadUpTo(fd, count, limitMs);
    out.assign(got.begin(), got.end());
    return got.size() == count;
}

// One Ethernet frame as a device reads it off the wire.
struct WireFrame {
    unsigned char command = 0;
    Bytes payload;
};

inline bool ReadEthernetFrame(int fd, WireFrame &frame, int limitMs = 5000) {
    Bytes header;
    if (!ReadExactly(fd, 3, header, limitMs)) return false;
    frame.command = header[0];
    const std::size_t length = header[1] | (header[2] << 8);
    return ReadExactly(fd, length, frame.payload, limitMs);
}

inline Bytes EthernetBytes(unsigned char command, const Bytes &payload) {
    Bytes out = {command, static_cast<unsigned char>(payload.size() & 0xFF),
                 static_cast<unsigned char>((payload.size() >> 8) & 0xFF)};
    out.insert(out.end(), payload.begin(), payload.end());
    return out;
}

// Ends a connection with a reset instead of an orderly close.
inline void ResetConnection(int fd) {
    linger hard = {1, 0};
    ::setsockopt(fd, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    ::close(fd);
}

// A TCP socket bound to a free port on 127.0.0.1; `address` gets that port.
inline int BoundLoopbackSocket(sockaddr_in &address) {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    address = sockaddr_in{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::bind(fd, reinterpret_cast<sockaddr *>(&address), sizeof address);
    socklen_t size = sizeof address;
    ::getsockname(fd, reinterpret_cast<sockaddr *>(&address), &size);
    return fd;
}

// A TCP peer on 127.0.0.1 that plays an instrument: it accepts connections one
// after the other on a thread of its own and runs `session` on each, closing
// the connection when the session returns (unless the session closed it and
// returned -1 in `fd`). Stop() (or the destructor) ends it and joins.
class LoopbackDevice {
public:
    using Session = std::function<void(int &fd, LoopbackDevice &device)>;

    explicit LoopbackDevice(Session session, int backlog = 16) : session_(std::move(session)) {
        sockaddr_in address;
        listener_ = BoundLoopbackSocket(address);
        ::listen(listener_, backlog);
        port_ = ntohs(address.sin_port);
        stop_ = ::eventfd(0, EFD_CLOEXEC);
        thread_ = std::thread([this] { Run(); });
    }
    ~LoopbackDevice() { Stop(); }

    unsigned short Port() const { return port_; }
    int Accepted() const { return accepted_; }
    // True once Stop() was called: sessions that loop should end.
    bool Stopping() const { return stopping_; }

    // Stops accepting and closes the listener, so new connects are refused.
    void Stop() {
        if (!thread_.joinable()) return;
        stopping_ = true;
        const std::uint64_t one = 1;
        [[maybe_unused]] ssize_t n = ::write(stop_, &one, sizeof one);
        thread_.join();
        ::close(listener_);
        ::close(stop_);
    }

    // Polls `fd` for input or the stop request; true when input is there.
    bool WaitReadable(int fd, int limitMs = 5000) {
        pollfd p[2] = {{fd, POLLIN, 0}, {stop_, POLLIN, 0}};
        if (::poll(p, 2, limitMs) <= 0) return false;
        return p[1].revents == 0 && p[0].revents != 0;
    }

private:
    void Run() {
        while (!stopping_) {
            pollfd p[2] = {{listener_, POLLIN, 0}, {stop_, POLLIN, 0}};
            if (::poll(p, 2, -1) <= 0 || p[1].revents != 0) return;
            int fd = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            if (fd < 0) continue;
            ++accepted_;
            session_(fd, *this);
            if (fd >= 0) ::close(fd);
        }
    }

    Session session_;
    int listener_ = -1;
    int stop_ = -1;
    unsigned short port_ = 0;
    std::atomic<bool> stopping_{false};
    std::atomic<int> accepted_{0};
    std::thread thread_;
};

// A port on 127.0.0.1 where nothing listens (bound, then closed).
inline unsigned short RefusingPort() {
    sockaddr_in address;
    ::close(BoundLoopbackSocket(address));
    return ntohs(address.sin_port);
}

// A listener whose queue is full and never accepts: further connection
// attempts get no answer at all, as from a device that is off the network.
class SilentListener {
public:
    SilentListener() {
        sockaddr_in address;
        listener_ = BoundLoopbackSocket(address);
        ::listen(listener_, 0);
        port_ = ntohs(address.sin_port);
        // Fill the accept queue so later handshakes go unanswered.
        for (int i = 0; i < 2; ++i) {
            const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
            ::connect(fd, reinterpret_cast<sockaddr *>(&address), sizeof address);
            fillers_.push_back(fd);
        }
        // Let the first filler complete its handshake; the second one (for
        // kernels that queue one more) may go unanswered already.
        pollfd p = {fillers_[0], POLLOUT, 0};
        ::poll(&p, 1, 1000);
    }
    ~SilentListener() {
        for (int fd : fillers_) ::close(fd);
        ::close(listener_);
    }
    unsigned short Port() const { return port_; }

private:
    int listener_ = -1;
    unsigned short port_ = 0;
    std::vector<int> fillers_;
};

// An instrument that answers each frame with what `answer` returns, and
// keeps every frame it received.
class Instrument {
public:
    using Answer = std::function<std::vector<WireFrame>(const WireFrame &request)>;

    // Runs first on each connection; true ends that connection at once.
    using Opening = std::function<bool(int &fd)>;

    explicit Instrument(Answer answer, Opening opening = {})
        : answer_(std::move(answer)), opening_(std::move(opening)),
          device_([this](int &fd, LoopbackDevice &d) { Serve(fd, d); }) {}

    unsigned short Port() const { return device_.Port(); }
    void Stop() { device_.Stop(); }
    std::vector<WireFrame> Received() {
        std::lock_guard<std::mutex> guard(mutex_);
        return received_;
    }
    std::size_t Count() {
        std::lock_guard<std::mutex> guard(mutex_);
        return received_.size();
    }
    // Sends a frame unasked (on the current connection).
    void Push(unsigned char command, const Bytes &payload) {
        std::lock_guard<std::mutex> guard(mutex_);
        if (fd_ >= 0) comm_test::WriteAll(fd_, comm_test::EthernetBytes(command, payload));
    }
    bool Connected() {
        std::lock_guard<std::mutex> guard(mutex_);
        return fd_ >= 0;
    }

private:
    void Serve(int &fd, LoopbackDevice &device) {
        if (opening_ && opening_(fd)) return;
        {
            std::lock_guard<std::mutex> guard(mutex_);
            fd_ = fd;
        }
        while (!device.Stopping()) {
            if (!device.WaitReadable(fd, 50)) continue;
            WireFrame frame;
            if (!comm_test::ReadEthernetFrame(fd, frame)) break;
            std::lock_guard<std::mutex> guard(mutex_);
            received_.push_back(frame);
            for (const WireFrame &reply : answer_(frame))
                comm_test::WriteAll(fd, comm_test::EthernetBytes(reply.command, reply.payload));
        }
        std::lock_guard<std::mutex> guard(mutex_);
        fd_ = -1;
    }

    Answer answer_;
    Opening opening_;
    std::mutex mutex_;
    std::vector<WireFrame> received_;
    int fd_ = -1;
    LoopbackDevice device_;
};

// Everything a subscriber of a QorDeviceComm hears, in order, one line an
// event ("long 33: 1 2", "short 64:", "error"); tests wait for a number of them.
class Listener : public QorDeviceCommSubscriber {
public:
    using Events = std::vector<std::string>;
    static std::string Line(const char *kind, unsigned char command, const Bytes &data) {
        std::string text = kind + std::string(" ") + std::to_string(command) + ":";
        for (unsigned char byte : data) text += " " + std::to_string(byte);
        return text;
    }
    void onLongMessage(unsigned char command, const std::vector<unsigned char> &data) override {
        Push(Line("long", command, data));
    }
    void onShortMessage(unsigned char command, const std::vector<unsigned char> &data) override {
        Push(Line("short", command, data));
    }
    void onCommError() override { Push("error"); }

    // The events so far, once there are at least `count` (at most `limitMs`).
    Events Wait(std::size_t count, int limitMs = 5000) {
        std::unique_lock<std::mutex> hold(mutex_);
        changed_.wait_for(hold, std::chrono::milliseconds(limitMs), [&] { return events_.size() >= count; });
        return events_;
    }
    Events Got() { return Wait(0); }
    // Messages heard, and damaged messages reported.
    std::size_t Count() { return Got().size() - Errors(); }
    std::size_t Errors() {
        const Events events = Got();
        return static_cast<std::size_t>(std::count(events.begin(), events.end(), "error"));
    }

private:
    void Push(std::string text) {
        std::lock_guard<std::mutex> guard(mutex_);
        events_.push_back(std::move(text));
        changed_.notify_all();
    }
    std::mutex mutex_;
    std::condition_variable changed_;
    Events events_;
};

}  // namespace comm_test
