#include "qor/comm/CSerial.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>

#include "qor/platform/Time.h"

namespace qor::serial_detail {

constexpr DWORD kNoInterval = 0xFFFFFFFFu;  // MAXDWORD: return what is there at once

// Set on every opening: reads give up 10 ms after the last byte or after
// 10 ms per byte plus 10; writes after 2 ms per byte plus 50.
constexpr COMMTIMEOUTS kPortTimeouts{10, 10, 10, 2, 50};

struct BaudRate {
    long baud;
    speed_t speed;
};
constexpr BaudRate kBaudRates[] = {
    {50, B50},         {75, B75},         {110, B110},       {134, B134},
    {150, B150},       {200, B200},       {300, B300},       {600, B600},
    {1200, B1200},     {1800, B1800},     {2400, B2400},     {4800, B4800},
    {9600, B9600},     {19200, B19200},   {38400, B38400},   {57600, B57600},
    {115200, B115200}, {230400, B230400}, {460800, B460800}, {500000, B500000},
    {576000, B576000}, {921600, B921600}, {1000000, B1000000}, {1152000, B1152000},
    {1500000, B1500000}, {2000000, B2000000}, {2500000, B2500000}, {3000000, B3000000},
    {3500000, B3500000}, {4000000, B4000000},
};

constexpr tcflag_t kByteSizes[] = {CS5, CS6, CS7, CS8};  // byteSize 5 to 8

// parity 0 none, 1 odd, 2 even, 3 mark, 4 space
constexpr tcflag_t kParities[] = {0, PARENB | PARODD, PARENB, PARENB | CMSPAR | PARODD,
                                  PARENB | CMSPAR};

// stopBits 0 one, 1 one and a half, 2 two. The UART gives one and a half
// where two are asked with five data bits; CSTOPB is the nearest we have.
constexpr tcflag_t kStopBits[] = {0, CSTOPB, CSTOPB};

enum class RtsLine { Disabled, Handshake };
struct FlowControl {
    bool ctsOut;
    bool xonXoff;
    RtsLine rts;
};
// Indexed by the flowControl value. The line discipline couples CTS output
// flow and RTS handshake in one flag; the one row that asks for RTS handshake
// alone (4) gets RTS raised, the nearest this platform offers.
constexpr FlowControl kFlowControls[] = {
    {false, false, RtsLine::Disabled},
    {false, true, RtsLine::Disabled},
    {true, false, RtsLine::Handshake},
    {true, true, RtsLine::Handshake},
    {false, false, RtsLine::Handshake},
};

class Guard {
public:
    explicit Guard(CRITICAL_SECTION &section) : section(section) { EnterCriticalSection(&section); }
    ~Guard() { LeaveCriticalSection(&section); }
    Guard(const Guard &) = delete;
    Guard &operator=(const Guard &) = delete;

private:
    CRITICAL_SECTION &section;
};

ULONGLONG Elapsed(ULONGLONG start) { return GetTickCount64() - start; }

DWORD Remaining(ULONGLONG start, unsigned long timeoutMs, DWORD step) {
    ULONGLONG elapsed = Elapsed(start);
    if (elapsed >= timeoutMs) return 0;
    return static_cast<DWORD>(std::min<ULONGLONG>(step, timeoutMs - elapsed));
}

int PollMilliseconds(ULONGLONG until, ULONGLONG now) {
    return static_cast<int>(std::min<ULONGLONG>(until - now, INT_MAX));
}

}  // namespace qor::serial_detail

namespace sdt = qor::serial_detail;

namespace qor {

std::string SerialHistoryTimeStamp(const std::tm &localTime, int milliseconds) {
    int hour = localTime.tm_hour % 12;
    if (hour == 0) hour = 12;
    char text[64];
    std::snprintf(text, sizeof text, "(%d/%d/%02d - %d:%02d:%02d.%02d %s) ", localTime.tm_mon + 1,
                  localTime.tm_mday, localTime.tm_year % 100, hour, localTime.tm_min,
                  localTime.tm_sec, (milliseconds / 10) % 100, localTime.tm_hour < 12 ? "AM" : "PM");
    return text;
}

}  // namespace qor

CSerial::CSerial() { InitializeCriticalSection(&lock); }

CSerial::~CSerial() {
    Close();
    DeleteCriticalSection(&lock);
}

bool CSerial::Open(short port, long baud, unsigned char byteSize, unsigned char parity,
                   unsigned char stopBits, short flowControl) {
    sdt::Guard guard(lock);
    readBuffer.clear();
    if (handle >= 0) {
        Close();
        Sleep(100);
    }
    this->port = port;
    this->baud = baud;
    this->byteSize = byteSize;
    this->parity = parity;
    this->stopBits = stopBits;
    this->flowControl = flowControl;

    std::string path = port > 0 ? qor::SerialPortPath(static_cast<unsigned>(port)) : std::string();
    int fd = path.empty() ? -1 : ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        this->port = 0;
        return false;
    }
    // Exclusive, as a serial port is: the advisory lock keeps out every
    // process that opens ports through this class, also one running as root,
    // whom TIOCEXCL does not stop.
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0 || !::isatty(fd)) {
        ::close(fd);
        this->port = 0;
        return false;
    }
    ::ioctl(fd, TIOCEXCL);
    handle = fd;
    if (!ApplyLineSettings()) {
        ::ioctl(fd, TIOCNXCL);
        ::close(fd);
        handle = -1;
        haveSavedLine = false;
        this->port = 0;
        return false;
    }
    savedTimeouts = timeouts;
    timeouts = sdt::kPortTimeouts;
    ::tcflush(handle, TCIOFLUSH);
    return true;
}

bool CSerial::ApplyLineSettings() {
    const sdt::BaudRate *rate = std::find_if(std::begin(sdt::kBaudRates), std::end(sdt::kBaudRates),
                                        [this](const sdt::BaudRate &r) { return r.baud == baud; });
    if (rate == std::end(sdt::kBaudRates)) return false;
    if (byteSize < 5 || byteSize > 8 || parity >= std::size(sdt::kParities) ||
        stopBits >= std::size(sdt::kStopBits) || flowControl < 0 ||
        static_cast<std::size_t>(flowControl) >= std::size(sdt::kFlowControls))
        return false;

    termios line{};
    if (::tcgetattr(handle, &line) != 0) return false;
    savedLine = line;
    haveSavedLine = true;

    const sdt::FlowControl &flow = sdt::kFlowControls[flowControl];
    ::cfmakeraw(&line);
    line.c_cflag &= ~(CSIZE | PARENB | PARODD | CMSPAR | CSTOPB | CRTSCTS);
    line.c_cflag |= CLOCAL | CREAD | sdt::kByteSizes[byteSize - 5] | sdt::kParities[parity] | sdt::kStopBits[stopBits];
    if (flow.ctsOut && flow.rts == sdt::RtsLine::Handshake) line.c_cflag |= CRTSCTS;
    line.c_iflag &= ~(IXON | IXOFF | IXANY);
    if (flow.xonXoff) line.c_iflag |= IXON | IXOFF;
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
    if (::cfsetispeed(&line, rate->speed) != 0 || ::cfsetospeed(&line, rate->speed) != 0) return false;
    if (::tcsetattr(handle, TCSANOW, &line) != 0) return false;

    // The RTS line; pseudo-terminals have none, which is no failure.
    int rts = TIOCM_RTS;
    ::ioctl(handle, flow.rts == sdt::RtsLine::Disabled ? TIOCMBIC : TIOCMBIS, &rts);
    return true;
}

void CSerial::Close() {
    sdt::Guard guard(lock);
    readBuffer.clear();
    if (handle >= 0) {
        ::tcflush(handle, TCOFLUSH);
        ::tcflush(handle, TCIFLUSH);
        timeouts = savedTimeouts;
        if (haveSavedLine) ::tcsetattr(handle, TCSANOW, &savedLine);
        haveSavedLine = false;
        ::ioctl(handle, TIOCNXCL);
        ::close(handle);
        handle = -1;
    }
    port = 0;
}

bool CSerial::Reset() {
    sdt::Guard guard(lock);
    short reopen = port;
    Close();
    Sleep(100);
    return Open(reopen, baud, byteSize, parity, stopBits, flowControl);
}

bool CSerial::IsOpen() const {
    sdt::Guard guard(lock);
    return handle >= 0;
}

short CSerial::GetPort() {
    sdt::Guard guard(lock);
    return port;
}

bool CSerial::SetCommTimeouts(COMMTIMEOUTS &newTimeouts) {
    sdt::Guard guard(lock);
    if (handle < 0) return false;
    timeouts = newTimeouts;
    return true;
}

bool CSerial::SetBufferSize(unsigned int, unsigned int) {
    // The kernel sizes its tty buffers itself; the request is only advice.
    sdt::Guard guard(lock);
    return handle >= 0;
}

bool CSerial::PurgeRX() {
    sdt::Guard guard(lock);
    readBuffer.clear();
    return handle >= 0 && ::tcflush(handle, TCIFLUSH) == 0;
}

bool CSerial::PurgeTX() {
    sdt::Guard guard(lock);
    return handle >= 0 && ::tcflush(handle, TCOFLUSH) == 0;
}

long CSerial::InputCount() const {
    int waiting = 0;
    if (handle < 0 || ::ioctl(handle, FIONREAD, &waiting) != 0) return -1;
    return waiting;
}

unsigned long CSerial::bytesinserialqueue() {
    sdt::Guard guard(lock);
    long waiting = InputCount();
    if (waiting < 0) return 0;
    return static_cast<unsigned long>(waiting) + readBuffer.size();
}

void CSerial::WaitForInput(DWORD milliseconds) const {
    int fd;
    {
        sdt::Guard guard(lock);
        fd = handle;
    }
    ULONGLONG start = GetTickCount64();
    if (fd >= 0) {
        pollfd waiter{fd, POLLIN, 0};
        int ready = ::poll(&waiter, 1, static_cast<int>(std::min<DWORD>(milliseconds, INT_MAX)));
        if (ready > 0 && (waiter.revents & POLLIN)) return;
        if (ready == 0) return;
    }
    // Closed or hung up: the line will not wake us, so take the whole time
    // rather than spin.
    ULONGLONG spent = sdt::Elapsed(start);
    if (spent < milliseconds) Sleep(static_cast<DWORD>(milliseconds - spent));
}

bool CSerial::ReadFromPort(unsigned long count, unsigned long &got, std::string &out,
                           ULONGLONG deadline) {
    got = 0;
    if (count == 0) return true;
    const bool immediate = timeouts.ReadIntervalTimeout == sdt::kNoInterval &&
                           timeouts.ReadTotalTimeoutMultiplier == 0 &&
                           timeouts.ReadTotalTimeoutConstant == 0;
    const bool hasTotal = timeouts.ReadTotalTimeoutMultiplier != 0 || timeouts.ReadTotalTimeoutConstant != 0;
    // The total is a 32-bit sum, as the port driver computes it.
    DWORD total = timeouts.ReadTotalTimeoutMultiplier * static_cast<DWORD>(count) +
                  timeouts.ReadTotalTimeoutConstant;
    ULONGLONG now = GetTickCount64();
    ULONGLONG end = hasTotal ? now + total : ULLONG_MAX;
    if (deadline != 0) end = std::min(end, deadline);
    const bool hasInterval = timeouts.ReadIntervalTimeout != 0 && timeouts.ReadIntervalTimeout != sdt::kNoInterval;
    ULONGLONG lastByte = 0;

    char chunk[4096];
    while (got < count) {
        std::size_t want = static_cast<std::size_t>(std::min<unsigned long>(count - got, sizeof chunk));
        ssize_t n = ::read(handle, chunk, want);
        if (n > 0) {
            out.append(chunk, static_cast<std::size_t>(n));
            got += static_cast<unsigned long>(n);
            lastByte = GetTickCount64();
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        if (n < 0 && errno != EAGAIN) return false;
        if (immediate) break;
        now = GetTickCount64();
        ULONGLONG until = end;
        if (got > 0 && hasInterval) until = std::min(until, lastByte + timeouts.ReadIntervalTimeout);
        if (now >= until) break;
        pollfd waiter{handle, POLLIN, 0};
        if (::poll(&waiter, 1, sdt::PollMilliseconds(until, now)) < 0 && errno != EINTR) return false;
    }
    return true;
}

bool CSerial::WriteToPort(const char *data, unsigned int length, unsigned int &written) {
    written = 0;
    const bool hasTotal = timeouts.WriteTotalTimeoutMultiplier != 0 || timeouts.WriteTotalTimeoutConstant != 0;
    DWORD total = timeouts.WriteTotalTimeoutMultiplier * length + timeouts.WriteTotalTimeoutConstant;
    ULONGLONG end = hasTotal ? GetTickCount64() + total : ULLONG_MAX;
    while (written < length) {
        ssize_t n = ::write(handle, data + written, length - written);
        if (n > 0) {
            written += static_cast<unsigned int>(n);
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        if (n < 0 && errno != EAGAIN) return false;
        ULONGLONG now = GetTickCount64();
        if (now >= end) break;  // timed out: a short write, not a failure
        pollfd waiter{handle, POLLOUT, 0};
        if (::poll(&waiter, 1, sdt::PollMilliseconds(end, now)) < 0 && errno != EINTR) return false;
    }
    return true;
}

bool CSerial::ReadSerialPort(unsigned long count, unsigned long &received, std::string &out) {
    return ReadSerialPort(count, received, out, 0);
}

bool CSerial::ReadSerialPort(unsigned long count, unsigned long &received, std::string &out,
                             ULONGLONG deadline) {
    if (count == 0) return true;
    std::string got;
    received = std::min<unsigned long>(count, readBuffer.size());
    got.assign(readBuffer, 0, received);
    readBuffer.erase(0, received);
    bool ok = true;
    if (received < count) {
        unsigned long fromPort = 0;
        ok = ReadFromPort(count - received, fromPort, got, deadline);
        received += fromPort;
    }
    out += got;
    recordReadHistory(got.data(), static_cast<unsigned int>(got.size()), ok);
    return ok;
}

std::string CSerial::read(unsigned long timeoutMs) {
    sdt::Guard guard(lock);
    std::string result;
    if (handle < 0) return result;
    ULONGLONG start = GetTickCount64();
    bool first = true;
    do {
        if (!first) WaitForInput(sdt::Remaining(start, timeoutMs, 20));
        first = false;
        result += readBuffer;
        readBuffer.clear();
        long waiting = InputCount();
        if (waiting > 0) {
            unsigned long got = 0;
            if (!ReadFromPort(static_cast<unsigned long>(waiting), got, result, 0)) return std::string();
        }
    } while (sdt::Elapsed(start) < timeoutMs);
    return result;
}

std::string CSerial::read(unsigned long count, unsigned long timeoutMs, unsigned long &received) {
    received = 0;
    sdt::Guard guard(lock);
    std::string result;
    if (handle < 0 || count == 0) return result;
    ULONGLONG start = GetTickCount64();
    for (bool first = true; count > 0 && sdt::Elapsed(start) < timeoutMs; first = false) {
        if (!first) WaitForInput(sdt::Remaining(start, timeoutMs, 20));
        unsigned long got = 0;
        if (!ReadSerialPort(count, got, result, start + timeoutMs)) {
            received = 0;
            return std::string();
        }
        received += got;
        count -= got;
    }
    return result;
}

std::string CSerial::read(unsigned long timeoutMs, const std::string &terminator, bool pushBack) {
    return ReadUntil(timeoutMs, pushBack, &terminator, nullptr);
}

std::string CSerial::read(const char *terminators, unsigned long timeoutMs, bool pushBack) {
    return ReadUntil(timeoutMs, pushBack, nullptr, terminators);
}

std::string CSerial::ReadUntil(unsigned long timeoutMs, bool pushBack, const std::string *terminator,
                               const char *terminators) {
    sdt::Guard guard(lock);
    std::string local;
    if (handle < 0) return local;
    ULONGLONG start = GetTickCount64();
    std::size_t end = std::string::npos;  // just past the terminator, once found
    std::size_t searchFrom = 0;
    bool first = true;
    do {
        if (!first) WaitForInput(sdt::Remaining(start, timeoutMs, 20));
        first = false;
        long waiting = InputCount();
        unsigned long available = (waiting > 0 ? static_cast<unsigned long>(waiting) : 0) + readBuffer.size();
        if (available > 0) {
            unsigned long got = 0;
            if (!ReadSerialPort(available, got, local, start + timeoutMs)) return std::string();
        }
        if (terminator) {
            std::size_t at = local.find(*terminator, searchFrom);
            if (at != std::string::npos) end = at + terminator->size();
            // A terminator may straddle what came now and what comes next.
            if (local.size() >= terminator->size()) searchFrom = local.size() - terminator->size() + 1;
        } else if (terminators) {
            std::size_t at = local.find_first_of(terminators, searchFrom);
            if (at != std::string::npos) end = at + 1;
            searchFrom = local.size();
        }
    } while (end == std::string::npos && sdt::Elapsed(start) < timeoutMs);

    if (!pushBack || (!terminator && !terminators)) return local;
    if (end == std::string::npos) {
        readBuffer.insert(0, local);
        return std::string();
    }
    readBuffer.insert(0, local, end, std::string::npos);
    local.resize(end);
    return local;
}

bool CSerial::write(const std::string &text) {
    return write(text.data(), static_cast<unsigned int>(text.size()));
}

bool CSerial::write(const char *data, unsigned int length) {
    sdt::Guard guard(lock);
    if (handle < 0) return false;
    unsigned int written = 0;
    bool ok = WriteToPort(data, length, written);
    recordWriteHistory(data, length, ok);
    Sleep(10);
    return ok;
}

bool CSerial::write(const std::string &text, const std::string &expected, std::string &reply,
                    unsigned long timeoutMs) {
    sdt::Guard guard(lock);
    PurgeRX();
    reply.clear();
    ULONGLONG start = GetTickCount64();
    for (;;) {
        if (handle < 0) return false;
        unsigned int written = 0;
        bool ok = WriteToPort(text.data(), static_cast<unsigned int>(text.size()), written);
        recordWriteHistory(text.data(), static_cast<unsigned int>(text.size()), ok);
        Sleep(10);
        if (!ok) return false;
        Sleep(10);
        reply += read("\r", 100, false);
        if (reply.find(expected) != std::string::npos || sdt::Elapsed(start) >= timeoutMs) break;
    }
    return sdt::Elapsed(start) < timeoutMs;
}

bool CSerial::WriteChars(const std::string &text, unsigned int delayMs) {
    sdt::Guard guard(lock);
    if (handle < 0) return false;
    for (char c : text) {
        unsigned int written = 0;
        if (!WriteToPort(&c, 1, written) || written != 1) return false;
        Sleep(delayMs);
    }
    return true;
}

void CSerial::BeginRecordHistory(unsigned int limit) {
    sdt::Guard guard(lock);
    historyLimit = limit;
    while (history.size() > limit) history.pop_front();
}

void CSerial::EndRecordHistory() {
    sdt::Guard guard(lock);
    historyLimit = 0;
    history.clear();
}

void CSerial::DumpHistory(const std::string &fileName) {
    if (fileName.empty()) return;
    sdt::Guard guard(lock);
    std::FILE *file = std::fopen(fileName.c_str(), "wb");
    if (!file) return;
    for (const std::string &line : history) std::fwrite(line.data(), 1, line.size(), file);
    std::fclose(file);
}

std::deque<std::string> CSerial::GetHistory() const {
    sdt::Guard guard(lock);
    return history;
}

void CSerial::recordReadHistory(const char *data, unsigned int length, bool ok) {
    recordHistory("RECV(", data, length, ok ? nullptr : "' **READ_FAIL**\r\n");
}

void CSerial::recordWriteHistory(const char *data, unsigned int length, bool ok) {
    recordHistory("SEND(", data, length, ok ? nullptr : "' **WRITE_FAIL**\r\n");
}

void CSerial::recordHistory(const char *direction, const char *data, unsigned int length,
                            const char *failure) {
    if (historyLimit == 0) return;
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    std::time_t seconds = now.tv_sec;
    std::tm local{};
    if (!::localtime_r(&seconds, &local) || local.tm_year < 0) {
        seconds = 0;
        ::localtime_r(&seconds, &local);
    }
    std::string line = direction;
    line += qor::SerialHistoryTimeStamp(local, static_cast<int>(now.tv_nsec / 1000000));
    line += ")'";
    line.append(data, length);
    line += failure ? failure : "'\r\n";
    history.push_back(std::move(line));
    while (history.size() > historyLimit) history.pop_front();
}
