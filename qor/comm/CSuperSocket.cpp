// CSuperSocket: life cycle, opening, closing, and the event thread that turns
// poll results into the Winsock-style conditions the containers expect.
#include "qor/comm/CSuperSocket.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <exception>
#include <iostream>

#include "qor/comm/CSuperSocketDetail.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"

using namespace qor::super_socket;

std::atomic<unsigned int> CSuperSocket::references{0};

namespace qor::super_socket {

void SignalEventFd(int fd) {
    const std::uint64_t one = 1;
    // A full counter still wakes the reader, so a failed write loses nothing.
    [[maybe_unused]] ssize_t n = ::write(fd, &one, sizeof one);
}

void DrainEventFd(int fd) {
    std::uint64_t value = 0;
    [[maybe_unused]] ssize_t n = ::read(fd, &value, sizeof value);
}

int TakeSocketError(int handle) {
    int error = 0;
    socklen_t size = sizeof error;
    if (::getsockopt(handle, SOL_SOCKET, SO_ERROR, &error, &size) != 0) return errno;
    return error;
}

// Connect errors that Winsock reports later, as the connect condition, rather
// than from the call itself.
bool IsDeferredConnectError(int errnum) {
    switch (errnum) {
        case ECONNREFUSED:
        case ETIMEDOUT:
        case ENETUNREACH:
        case EHOSTUNREACH:
        case ECONNRESET:
            return true;
        default:
            return false;
    }
}

}  // namespace qor::super_socket

CSuperSocket::CSuperSocket(CSuperSocketContainer &owner) : container(owner) {
    // The socket library needs no start-up here; the count stays for callers
    // that ask how many sockets are alive.
    ++references;
    shutdownEvent = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    wakeEvent = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    handleClosed = CreateEvent(nullptr, TRUE, TRUE, nullptr);
    if (shutdownEvent >= 0 && wakeEvent >= 0 && handleClosed != nullptr)
        thread = qor::BeginThread([this] { return SocketThread(); }, &threadId);
    if (thread == nullptr) {
        if (shutdownEvent >= 0) ::close(shutdownEvent);
        if (wakeEvent >= 0) ::close(wakeEvent);
        if (handleClosed != nullptr) CloseHandle(handleClosed);
        --references;
        Fail("CSuperSocket::CSuperSocket::WSACreateEvent failed");
    }
}

CSuperSocket::~CSuperSocket() {
    {
        Guard guard(lock);
        if (socket >= 0) ::shutdown(socket, SHUT_WR);
    }
    stopping = true;
    SignalEventFd(shutdownEvent);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    const int handle = socket.exchange(-1);
    if (handle >= 0) ::close(handle);
    ::close(shutdownEvent);
    ::close(wakeEvent);
    CloseHandle(handleClosed);
    --references;
}

unsigned int CSuperSocket::LiveSockets() { return references; }

void CSuperSocket::Wake() {
    if (GetCurrentThreadId() != threadId) SignalEventFd(wakeEvent);
}

void CSuperSocket::Adopt(int handle, unsigned selected, bool listening) {
    socket = handle;
    networkEvent = NetworkEvent{};
    networkEvent.selected = selected;
    networkEvent.listening = listening;
    networkEvent.readArmed = !listening && (selected & (kRead | kClose)) != 0;
    networkEvent.acceptArmed = listening && (selected & kAccept) != 0;
    networkEvent.generation = ++generationCounter;
    ResetEvent(handleClosed);
    Wake();
}

bool CSuperSocket::CloseHandleOf(unsigned generation) {
    if (networkEvent.generation != generation || socket < 0) return false;
    ::close(socket.exchange(-1));
    isUDP = false;
    networkEvent = NetworkEvent{};
    networkEvent.generation = ++generationCounter;
    SetEvent(handleClosed);
    return true;
}

// --- Opening -----------------------------------------------------------------

int CSuperSocket::OpenBoundSocket(int type, unsigned short port, const char *bindFailure) {
    const int handle = ::socket(AF_INET, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (handle < 0) FailWithErrno("CSuperSocket::Listen::socket::");
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_ANY);
    local.sin_port = htons(port);
    if (::bind(handle, reinterpret_cast<sockaddr *>(&local), sizeof local) != 0) {
        const int error = errno;
        Adopt(handle, 0);  // kept, as a failed opening leaves it
        FailWithErrno(bindFailure, error);
    }
    return handle;
}

void CSuperSocket::CreateUDPSocket(unsigned short port) {
    Guard guard(lock);
    if (socket >= 0) Fail("CSuperSocket::CreateUDPSocket::socket already open");
    const int handle = OpenBoundSocket(SOCK_DGRAM, port, "CSuperSocket::CreateUDPSocket::bind::");
    isUDP = true;
    Adopt(handle, kUdpSelection);
}

void CSuperSocket::Listen(unsigned short port) {
    Guard guard(lock);
    if (socket >= 0) Fail("CSuperSocket::Listen::socket already open");
    const int handle = OpenBoundSocket(SOCK_STREAM, port, "CSuperSocket::Listen::bind::");
    if (::listen(handle, 0x7FFFFFFF) != 0) {
        const int error = errno;
        Adopt(handle, 0);
        FailWithErrno("CSuperSocket::Listen::listen::", error);
    }
    Adopt(handle, kListenSelection, true);
}

void CSuperSocket::Accept(CSuperSocket &other) {
    int handle = -1;
    sockaddr_in peer{};
    {
        Guard guard(lock);
        if (socket < 0) Fail("CSuperSocket::Accept::socket not open");
        if (isUDP) Fail("CSuperSocket::Accept::can't Accept on UDP socket");
        socklen_t size = sizeof peer;
        handle = ::accept4(socket, reinterpret_cast<sockaddr *>(&peer), &size,
                           SOCK_NONBLOCK | SOCK_CLOEXEC);
        // Accepting re-enables the accept condition, whatever came of it.
        networkEvent.acceptArmed = true;
        Wake();
        if (handle < 0) FailWithErrno("CSuperSocket::Accept::accept::");
    }
    char dotted[INET_ADDRSTRLEN] = {0};
    ::inet_ntop(AF_INET, &peer.sin_addr, dotted, sizeof dotted);
    Guard guard(other.lock);
    other.Adopt(handle, kListenSelection);
    // A new connection can be written to at once.
    other.networkEvent.writeArmed = true;
    other.remoteAddress = dotted;
    other.remotePort = ntohs(peer.sin_port);
}

void CSuperSocket::Connect(const std::string &host, unsigned short port) {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    const int result =
        ::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
    // A Close(false) just before needs the event thread to see the close
    // condition before the handle is looked at: give it up to 250 ms, and go
    // on at once when no handle is open.
    WaitForSingleObject(handleClosed, 250);
    if (result != 0) {
        if (found != nullptr) ::freeaddrinfo(found);
        std::string text = ::gai_strerror(result);
        if (text.size() > 1024) text.resize(1024);
        throw CSuperSocketException("CSuperSocket::Connect::getaddrinfo::" + text, false);
    }
    sockaddr_in address{};
    std::memcpy(&address, found->ai_addr, sizeof address);
    ::freeaddrinfo(found);
    Connect(address);
}

void CSuperSocket::Connect(const sockaddr_in &address) {
    Guard guard(lock);
    if (socket >= 0) Fail("CSuperSocket::Connect::socket already open");
    const int handle = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (handle < 0) FailWithErrno("CSuperSocket::Connect::socket::");
    int result = ::connect(handle, reinterpret_cast<const sockaddr *>(&address), sizeof address);
    const int error = result == 0 ? 0 : errno;
    if (result != 0 && error != EINPROGRESS && !IsDeferredConnectError(error)) {
        Adopt(handle, 0);
        FailWithErrno("CSuperSocket::Connect::connect::", error);
    }
    Adopt(handle, kConnectSelection);
    networkEvent.connectPending = true;
    // Known at once (loopback often is): the thread still reports it.
    if (result != 0 && error != EINPROGRESS) networkEvent.connectResult = qor::WinsockErrorFromErrno(error);
    char dotted[INET_ADDRSTRLEN] = {0};
    ::inet_ntop(AF_INET, &address.sin_addr, dotted, sizeof dotted);
    remoteAddress = dotted;
    remotePort = ntohs(address.sin_port);
}

void CSuperSocket::Close(bool closeNow) {
    Guard guard(lock);
    if (socket < 0) return;
    ::shutdown(socket, SHUT_WR);
    if (closeNow) {
        CloseHandleOf(networkEvent.generation);
        Wake();
    }
}

// --- The event thread ----------------------------------------------------------

DWORD CSuperSocket::SocketThread() {
    for (;;) {
        try {
            unsigned conditions = 0;
            int codes[6] = {0, 0, 0, 0, 0, 0};
            unsigned generation = 0;
            if (!WaitForConditions(conditions, codes, generation)) return 0;
            DeliverConditions(conditions, codes, generation);
        } catch (const CSuperSocketException &e) {
            std::cout << e.message << e.errorText << std::endl
                      << "CSuperSocket::SocketThread::ERROR manually resetting network event object"
                      << std::endl;
        } catch (const CQorException &e) {
            // Not ours, but it must not end the thread (nor the process).
            std::cout << e.source << e.message << std::endl
                      << "CSuperSocket::SocketThread::ERROR manually resetting network event object"
                      << std::endl;
        } catch (const std::exception &e) {
            std::cout << e.what() << std::endl
                      << "CSuperSocket::SocketThread::ERROR manually resetting network event object"
                      << std::endl;
        }
    }
}

bool CSuperSocket::WaitForConditions(unsigned &conditions, int (&codes)[6], unsigned &generation) {
    for (;;) {
        if (stopping) return false;
        pollfd watched[3] = {{shutdownEvent, POLLIN, 0}, {wakeEvent, POLLIN, 0}, {-1, 0, 0}};
        {
            Guard guard(lock);
            generation = networkEvent.generation;
            const NetworkEvent &state = networkEvent;
            if (socket >= 0 && state.selected != 0) {
                if (state.connectPending && state.connectResult >= 0) {
                    // A connect that failed at once: report it without waiting.
                    RecordConditions(socket, 0, conditions, codes);
                    return true;
                }
                short events = 0;
                if (state.connectPending) {
                    events = POLLOUT;
                } else if (state.listening) {
                    if (state.acceptArmed) events = POLLIN;
                } else {
                    if (state.readArmed) events |= POLLIN;
                    if (state.selected & kOutOfBand) events |= POLLPRI;
                    if (state.writeArmed) events |= POLLOUT;
                    if (state.selected & kClose) events |= POLLRDHUP;
                }
                watched[2] = {socket, events, 0};
            }
        }
        const int ready = ::poll(watched, watched[2].fd >= 0 ? 3 : 2, -1);
        if (ready < 0) {
            if (errno == EINTR) continue;
            FailWithErrno("CSuperSocket::SocketThread::WSAWaitForMultipleEvents::");
        }
        if (watched[0].revents != 0) return false;
        if (watched[1].revents != 0) DrainEventFd(wakeEvent);
        if (watched[2].fd < 0 || watched[2].revents == 0) continue;
        Guard guard(lock);
        // The handle changed while we waited: what we saw belongs to the old one.
        if (networkEvent.generation != generation || socket != watched[2].fd) continue;
        if (RecordConditions(socket, watched[2].revents, conditions, codes)) return true;
    }
}

bool CSuperSocket::RecordConditions(int handle, short revents, unsigned &conditions,
                                    int (&codes)[6]) {
    NetworkEvent &state = networkEvent;
    conditions = 0;
    if (state.connectPending) {
        int error = 0;
        if (state.connectResult >= 0) {
            error = state.connectResult;
        } else {
            if ((revents & (POLLOUT | POLLERR | POLLHUP)) == 0) return false;
            const int errnum = TakeSocketError(handle);
            error = errnum == 0 ? 0 : qor::WinsockErrorFromErrno(errnum);
        }
        state.connectPending = false;
        state.connectResult = -1;
        conditions |= kConnect;
        codes[kConnectSlot] = error;
        if (error == 0 && (state.selected & kWrite)) conditions |= kWrite;
        return true;
    }
    if (state.listening) {
        if (state.acceptArmed && (revents & POLLIN)) {
            conditions |= kAccept;
            state.acceptArmed = false;
        }
        return conditions != 0;
    }
    if (revents & POLLPRI) {
        // Take the urgent byte, so that the condition is reported once per mark.
        unsigned char urgent = 0;
        ::recv(handle, &urgent, 1, MSG_OOB | MSG_DONTWAIT);
        conditions |= kOutOfBand;
    }
    int waiting = 0;
    if (::ioctl(handle, FIONREAD, &waiting) != 0) waiting = 0;
    if (isUDP) {
        if (revents & POLLERR) TakeSocketError(handle);  // an ICMP report; nothing to deliver
        if (state.readArmed && (revents & POLLIN)) {
            conditions |= kRead;
            state.readArmed = false;
        }
        return conditions != 0;
    }
    const bool ended = (revents & (POLLRDHUP | POLLHUP | POLLERR)) != 0 ||
                       ((revents & POLLIN) && waiting == 0);
    if (state.readArmed && waiting > 0) {
        // Data first; the close condition follows once they have been read
        // (or once the container stops reading them).
        conditions |= kRead;
        state.readArmed = false;
    } else if (ended && (state.selected & kClose)) {
        const int errnum = TakeSocketError(handle);
        conditions |= kClose;
        codes[kCloseSlot] = errnum == 0 ? 0 : qor::WinsockErrorFromErrno(errnum);
    }
    if (state.writeArmed && (revents & POLLOUT)) {
        conditions |= kWrite;
        state.writeArmed = false;
    }
    return conditions != 0;
}

void CSuperSocket::DeliverConditions(unsigned conditions, const int (&codes)[6],
                                     unsigned generation) {
    auto text = [](int code) { return CSuperSocketException::TranslateErrorCode(code); };
    if (conditions & kAccept) container.OnAccept(*this, codes[kAcceptSlot], text(codes[kAcceptSlot]));
    if (conditions & kOutOfBand)
        container.OnOutOfBand(*this, codes[kOutOfBandSlot], text(codes[kOutOfBandSlot]));
    if (conditions & kRead) container.OnReceive(*this, codes[kReadSlot], text(codes[kReadSlot]));
    if (conditions & kWrite) container.OnSend(*this, codes[kWriteSlot], text(codes[kWriteSlot]));
    if (conditions & kConnect) {
        const int code = codes[kConnectSlot];
        {
            Guard guard(lock);
            // Closed or reopened meanwhile by the owner: the outcome is stale.
            if (networkEvent.generation != generation) return;
            if (code != 0) CloseHandleOf(generation);
        }
        if (code != 0) qor::SetLastSocketError(code);
        container.OnConnect(*this, code, text(code));
    }
    if (conditions & kClose) {
        {
            Guard guard(lock);
            if (!CloseHandleOf(generation)) return;
        }
        container.OnClose(*this, codes[kCloseSlot], text(codes[kCloseSlot]));
    }
}
