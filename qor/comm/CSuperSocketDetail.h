// Internals shared by the socket layer's sources.
#pragma once

#include <cerrno>
#include <string>

#include "qor/comm/CSuperSocket.h"
#include "qor/comm/SocketErrors.h"
#include "qor/platform/CriticalSection.h"

namespace qor::super_socket {

// Condition bits of an event selection, as Winsock numbers them.
constexpr unsigned kRead = 0x01;
constexpr unsigned kWrite = 0x02;
constexpr unsigned kOutOfBand = 0x04;
constexpr unsigned kAccept = 0x08;
constexpr unsigned kConnect = 0x10;
constexpr unsigned kClose = 0x20;

// The selections the opening calls make.
constexpr unsigned kConnectSelection = kRead | kWrite | kOutOfBand | kConnect | kClose;  // 0x37
constexpr unsigned kListenSelection = 0x3F;
constexpr unsigned kUdpSelection = kRead | kOutOfBand;  // 0x05

// Where each condition's error code sits, in delivery order.
enum ConditionSlot { kAcceptSlot, kOutOfBandSlot, kReadSlot, kWriteSlot, kConnectSlot, kCloseSlot };

class Guard {
public:
    explicit Guard(CCriticalSection &section) : section_(section) { section_.Lock(); }
    ~Guard() { section_.Unlock(); }
    Guard(const Guard &) = delete;
    Guard &operator=(const Guard &) = delete;

private:
    CCriticalSection &section_;
};

// Throws `message` without a socket error.
[[noreturn]] inline void Fail(const char *message) { throw CSuperSocketException(message, false); }

// Records errno as the thread's socket error and throws `message` with it.
[[noreturn]] inline void FailWithErrno(const std::string &message, int errnum = errno) {
    SetLastSocketErrorFromErrno(errnum);
    throw CSuperSocketException(message, true);
}

}  // namespace qor::super_socket
