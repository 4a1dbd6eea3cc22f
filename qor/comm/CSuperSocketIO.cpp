// CSuperSocket: sending, receiving, datagrams, multicast and addresses.
#include <arpa/inet.h>
#include <netdb.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "qor/comm/CSuperSocket.h"
#include "qor/comm/CSuperSocketDetail.h"
#include "qor/platform/Time.h"

using namespace qor::super_socket;

namespace qor::super_socket_io {

// How long Send waits for room for the rest of a message the socket took
// only part of, before it gives up as if the send would block.
constexpr int kPartialSendWaitMs = 1000;

std::string Dotted(const in_addr &address) {
    char text[INET_ADDRSTRLEN] = {0};
    ::inet_ntop(AF_INET, &address, text, sizeof text);
    return text;
}

// Resolves host and port the way Connect does (IPv4, stream hint); false and
// the resolver's text when it fails.
bool Resolve(const std::string &host, unsigned short port, sockaddr_in &out, std::string &error) {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    const int result = ::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
    if (result != 0) {
        if (found != nullptr) ::freeaddrinfo(found);
        error = ::gai_strerror(result);
        if (error.size() > 1024) error.resize(1024);
        return false;
    }
    std::memcpy(&out, found->ai_addr, sizeof out);
    ::freeaddrinfo(found);
    return true;
}

}  // namespace qor::super_socket_io

using namespace qor::super_socket_io;

void CSuperSocket::Send(const unsigned char *data, unsigned int length) {
    std::size_t sent = 0;
    for (;;) {
        int handle = -1;
        {
            Guard guard(lock);
            if (socket < 0) Fail("CSuperSocket::Send::socket not open");
            if (isUDP) Fail("CSuperSocket::Send::can't Send on UDP socket : use SendTo");
            handle = socket;
            const ssize_t n = ::send(handle, data + sent, length - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
            if (n < 0 && errno != EAGAIN && errno != EWOULDBLOCK) {
                qor::SetLastSocketErrorFromErrno(errno);
                throw CSuperSocketException("CSuperSocket::Send() error: code " +
                                                std::to_string(qor::GetLastSocketError()) + ": ",
                                            true);
            }
            if (n < 0 && sent == 0) {
                // Full: the write condition tells when sending is possible again.
                networkEvent.writeArmed = true;
                Wake();
                FailWithErrno("CSuperSocket::Send::Resource temporarily unavailable", EWOULDBLOCK);
            }
            if (n > 0) sent += static_cast<std::size_t>(n);
            if (sent >= length) return;
        }
        // The socket took part of the message: a frame cut in two would
        // derail the peer's reader, so wait (briefly) to send the rest.
        pollfd room = {handle, POLLOUT, 0};
        if (::poll(&room, 1, kPartialSendWaitMs) <= 0) {
            Guard guard(lock);
            networkEvent.writeArmed = true;
            Wake();
            FailWithErrno("CSuperSocket::Send::Resource temporarily unavailable", EWOULDBLOCK);
        }
    }
}

void CSuperSocket::Send(const std::string &data) {
    Send(reinterpret_cast<const unsigned char *>(data.data()), static_cast<unsigned int>(data.size()));
}

unsigned int CSuperSocket::ReceiveInt(unsigned char *buffer, unsigned int length) {
    if (length == 0) return 0;
    const ssize_t n = ::recv(socket, buffer, length, MSG_DONTWAIT);
    if (n < 0) FailWithErrno("CSuperSocket::Receive::recv::");
    return static_cast<unsigned int>(n);
}

unsigned int CSuperSocket::WaitingForReceive() {
    if (socket < 0) Fail("CSuperSocket::Receive::socket not open");
    if (isUDP) Fail("CSuperSocket::Receive::can't Receive on UDP socket : use ReceiveFrom");
    if (!networkEvent.readArmed) {
        networkEvent.readArmed = true;
        Wake();
    }
    int waiting = 0;
    if (::ioctl(socket, FIONREAD, &waiting) != 0) FailWithErrno("CSuperSocket::Receive::ioctlsocket::");
    return static_cast<unsigned int>(waiting);
}

unsigned int CSuperSocket::Receive(unsigned char *buffer, unsigned int length) {
    Guard guard(lock);
    return ReceiveInt(buffer, std::min(WaitingForReceive(), length));
}

unsigned int CSuperSocket::Receive(std::string &data, unsigned int maximum) {
    Guard guard(lock);
    unsigned int wanted = WaitingForReceive();
    if (maximum != 0) wanted = std::min(wanted, maximum);
    if (wanted == 0) return 0;
    std::vector<unsigned char> buffer(wanted);
    const unsigned int got = ReceiveInt(buffer.data(), wanted);
    data.assign(reinterpret_cast<const char *>(buffer.data()), got);
    return got;
}

void CSuperSocket::SendTo(const sockaddr_in &address, const unsigned char *data, unsigned int length) {
    Guard guard(lock);
    if (socket < 0) Fail("CSuperSocket::SendTo::socket not open");
    if (!isUDP) Fail("CSuperSocket::SendTo::can't SendTo on non-UDP socket : use Send");
    if (::sendto(socket, data, length, MSG_NOSIGNAL | MSG_DONTWAIT,
                 reinterpret_cast<const sockaddr *>(&address), sizeof address) < 0)
        FailWithErrno("CSuperSocket::SendTo::sendto::");
    remoteAddress = Dotted(address.sin_addr);
    remotePort = ntohs(address.sin_port);
}

void CSuperSocket::SendTo(const sockaddr_in &address, const std::string &data) {
    SendTo(address, reinterpret_cast<const unsigned char *>(data.data()),
           static_cast<unsigned int>(data.size()));
}

void CSuperSocket::SendTo(const std::string &host, unsigned short port, const unsigned char *data,
                          unsigned int length) {
    sockaddr_in address{};
    std::string error;
    if (!Resolve(host, port, address, error))
        throw CSuperSocketException("CSuperSocket::SendTo::getaddrinfo::" + error, false);
    SendTo(address, data, length);
}

void CSuperSocket::SendTo(const std::string &host, unsigned short port, const std::string &data) {
    SendTo(host, port, reinterpret_cast<const unsigned char *>(data.data()),
           static_cast<unsigned int>(data.size()));
}

unsigned int CSuperSocket::ReceiveFrom(sockaddr_in &address, std::string &data) {
    Guard guard(lock);
    if (socket < 0) Fail("CSuperSocket::ReceiveFrom::socket not open");
    if (!isUDP) Fail("CSuperSocket::ReceiveFrom::can't ReceiveFrom on non-UDP socket : use Receive");
    if (!networkEvent.readArmed) {
        networkEvent.readArmed = true;
        Wake();
    }
    int waiting = 0;
    if (::ioctl(socket, FIONREAD, &waiting) != 0)
        FailWithErrno("CSuperSocket::ReceiveFrom::ioctlsocket::");
    if (waiting == 0) {
        // An empty datagram at the head would keep the read condition coming
        // for ever: take it off, it carries nothing to return.
        unsigned char none = 0;
        ::recv(socket, &none, 0, MSG_DONTWAIT);
        return 0;
    }
    std::vector<unsigned char> buffer(static_cast<std::size_t>(waiting));
    sockaddr_in sender{};
    socklen_t size = sizeof sender;
    const ssize_t n = ::recvfrom(socket, buffer.data(), buffer.size(), MSG_DONTWAIT,
                                 reinterpret_cast<sockaddr *>(&sender), &size);
    if (n < 0) FailWithErrno("CSuperSocket::ReceiveFrom::recv::");
    data.assign(reinterpret_cast<const char *>(buffer.data()), static_cast<std::size_t>(n));
    address = sender;
    remoteAddress = Dotted(sender.sin_addr);
    remotePort = ntohs(sender.sin_port);
    return static_cast<unsigned int>(n);
}

unsigned int CSuperSocket::ReceiveFrom(std::string &address, unsigned short &port, std::string &data) {
    sockaddr_in sender{};
    const unsigned int n = ReceiveFrom(sender, data);
    if (n != 0) {
        address = Dotted(sender.sin_addr);
        port = ntohs(sender.sin_port);
    }
    return n;
}

void CSuperSocket::JoinMulticastGroup(const in_addr &group) {
    Guard guard(lock);
    if (socket < 0) Fail("CSuperSocket::JoinMulticastGroup::socket not open");
    if (!isUDP) Fail("CSuperSocket::JoinMulticastGroup::can't multicast on non-UDP socket");
    ip_mreq request{};
    request.imr_multiaddr = group;
    request.imr_interface.s_addr = htonl(INADDR_ANY);
    if (::setsockopt(socket, IPPROTO_IP, IP_ADD_MEMBERSHIP, &request, sizeof request) != 0)
        FailWithErrno("CSuperSocket::JoinMulticastGroup::recv::");
}

void CSuperSocket::JoinMulticastGroup(const std::string &group) {
    in_addr address{};
    address.s_addr = ::inet_addr(group.c_str());
    JoinMulticastGroup(address);
}

std::string CSuperSocket::GetIdentifierString() {
    Guard guard(lock);
    return remoteAddress + ":" + std::to_string(remotePort);
}

sockaddr_in CSuperSocket::LocalName() {
    if (socket < 0) Fail("CSuperSocket::GetLocalPort::socket not open");
    sockaddr_in local{};
    socklen_t size = sizeof local;
    if (::getsockname(socket, reinterpret_cast<sockaddr *>(&local), &size) != 0)
        FailWithErrno("CSuperSocket::GetLocalPort::getsockname::");
    return local;
}

std::string CSuperSocket::GetLocalAddress() {
    Guard guard(lock);
    return Dotted(LocalName().sin_addr);
}

unsigned short CSuperSocket::GetLocalPort() {
    Guard guard(lock);
    return ntohs(LocalName().sin_port);
}

std::string CSuperSocket::GetRemoteAddress() {
    Guard guard(lock);
    return remoteAddress;
}

unsigned short CSuperSocket::GetRemotePort() {
    Guard guard(lock);
    return remotePort;
}

bool CSuperSocket::IsConnected() { return socket >= 0; }

bool CSuperSocket::IsUDPSocket() { return isUDP; }

bool CSuperSocket::IsShuttingDown() const { return stopping; }

bool CSuperSocket::WaitForData(unsigned int milliseconds) {
    int handle = -1;
    {
        Guard guard(lock);
        handle = socket;
    }
    if (handle < 0 || stopping) return false;
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        const ULONGLONG spent = GetTickCount64() - start;
        if (spent > milliseconds) return false;
        pollfd watched[2] = {{handle, POLLIN | POLLRDHUP, 0}, {shutdownEvent, POLLIN, 0}};
        const int ready = ::poll(watched, 2, static_cast<int>(milliseconds - spent));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0 || stopping) return false;
        Guard guard(lock);
        if (socket != handle) return false;
        int waiting = 0;
        if (::ioctl(handle, FIONREAD, &waiting) != 0) return false;
        // Readable with nothing to read: the peer has ended the stream.
        return waiting > 0;
    }
}

std::string GetBroadcastAddress(int adapterIndex) {
    char name[255] = {0};
    if (::gethostname(name, sizeof name - 1) != 0) return "";
    hostent entry{};
    hostent *found = nullptr;
    std::vector<char> scratch(8192);
    int error = 0;
    if (::gethostbyname_r(name, &entry, scratch.data(), scratch.size(), &found, &error) != 0 ||
        found == nullptr || found->h_addrtype != AF_INET)
        return "";
    // The list is not indexed blindly: past its end there is no adapter.
    if (adapterIndex < 0) return "";
    for (int i = 0; i <= adapterIndex; ++i)
        if (found->h_addr_list[i] == nullptr) return "";
    in_addr address{};
    std::memcpy(&address, found->h_addr_list[adapterIndex], sizeof address);
    unsigned char *octets = reinterpret_cast<unsigned char *>(&address.s_addr);
    octets[3] = 255;
    return Dotted(address);
}
