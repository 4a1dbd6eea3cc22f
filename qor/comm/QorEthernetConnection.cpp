#include "qor/comm/QorEthernetConnection.h"

#include <chrono>

#include "qor/comm/DeviceFrame.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/QorDeviceCommException.h"
#include "qor/platform/Time.h"
#include "qor/platform/Waitable.h"

std::atomic<signed char> QorEthernetConnection::sendRetries{0};

namespace qor::ethernet {

// Counts the time of one wait against its limit. It measures finer than the
// millisecond tick, so that a wait that took its full second counts as past
// the limit rather than exactly at it.
class ConnectionTimer {
public:
    using Clock = std::chrono::steady_clock;
    ConnectionTimer(long long timeoutMs, const char *label)
        : timeoutMs_(timeoutMs), start_(Clock::now()), label_(label) {}
    void Restart() { start_ = Clock::now(); }
    long long ElapsedMicroseconds() const {
        return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start_).count();
    }
    bool Expired() const { return ElapsedMicroseconds() > timeoutMs_ * 1000; }
    unsigned int Remaining() const {
        const long long left = timeoutMs_ * 1000 - ElapsedMicroseconds();
        return left > 0 ? static_cast<unsigned int>((left + 999) / 1000) : 0u;
    }

private:
    long long timeoutMs_;
    Clock::time_point start_;
    const char *label_;  // kept for a debugger's sake; shown nowhere
};

constexpr long long kConnectWaitMs = 1000;
constexpr long long kReadWaitMs = 1000;
constexpr unsigned char kMaxSendRetries = 5;

// Reads what `frame` wants next until that part is complete or the time is
// up. Waits on the socket between reads rather than spinning; gives up early
// when nothing more can come (stream ended, socket closing).
bool ReadPart(CSuperSocket &socket, EthernetFrameAssembler &frame, ConnectionTimer &timer,
              bool header) {
    auto done = [&] { return header ? frame.HeaderComplete() : frame.Complete(); };
    while (!done() && !timer.Expired()) {
        const unsigned int got =
            socket.Receive(frame.Space(), static_cast<unsigned int>(frame.Wanted()));
        frame.Commit(got);
        // Nothing there: wait for more. A timeout, the end of the stream or
        // the socket going away all mean this frame will not complete.
        if (!done() && got == 0 && !socket.WaitForData(timer.Remaining())) return false;
    }
    return done();
}

}  // namespace qor::ethernet

using qor::ethernet::ConnectionTimer;

QorEthernetConnection::QorEthernetConnection() = default;

QorEthernetConnection::QorEthernetConnection(const std::string &hostName, unsigned int portNumber,
                                             QorDeviceComm *owner)
    : QorDeviceConnection(owner), host(hostName), port(portNumber) {
    connectEvent = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    sendEvent = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    try {
        socket = new CSuperSocket(*this);
        socket->Connect(host, static_cast<unsigned short>(port & 0xFFFFu));
    } catch (...) {
        shutdown();
        throw;
    }
    if (!WaitForConnection()) {
        shutdown();
        throw QorDeviceCommException("Timed out while trying to connect to device via Ethernet");
    }
    if (!socket->IsConnected()) {
        shutdown();
        throw QorDeviceCommException("Failed to connect to device via Ethernet");
    }
}

QorEthernetConnection::~QorEthernetConnection() { shutdown(); }

void QorEthernetConnection::shutdown() {
    if (socket != nullptr) {
        socket->Close(false);
        delete socket;
        socket = nullptr;
    }
    if (connectEvent != nullptr) CloseHandle(connectEvent);
    connectEvent = nullptr;
    if (sendEvent != nullptr) CloseHandle(sendEvent);
    sendEvent = nullptr;
}

bool QorEthernetConnection::WaitForConnection() {
    ConnectionTimer timer(qor::ethernet::kConnectWaitMs, "QorEthernetConnection::WaitForConnection");
    const DWORD limit = static_cast<DWORD>(qor::ethernet::kConnectWaitMs);
    DWORD result = WaitForSingleObject(connectEvent, limit);
    while (result == WAIT_TIMEOUT && !timer.Expired()) {
        Sleep(10);
        result = WaitForSingleObject(connectEvent, limit);
    }
    return result != WAIT_TIMEOUT;
}

void QorEthernetConnection::send(unsigned char command, const unsigned char *data,
                                 unsigned int length, bool longFrame, int *reconnects) {
    if (length != 0 && data == nullptr) return;
    const EthernetFrame frame(command, data, length);
    CSuperSocketException saved("", false);
    try {
        if (socket == nullptr) throw CSuperSocketException("CSuperSocket::Send::socket not open", false);
        socket->Send(frame.bytes.data(), static_cast<unsigned int>(frame.bytes.size()));
        sendRetries = 0;
        return;
    } catch (const CSuperSocketException &failure) {
        saved = failure;
    }
    if (socket == nullptr) throw saved;
    if (sendRetries.fetch_add(1) >= static_cast<signed char>(qor::ethernet::kMaxSendRetries)) {
        sendRetries = 0;
        throw saved;
    }
    try {
        socket->Close(false);
        socket->Connect(host, static_cast<unsigned short>(port & 0xFFFFu));
    } catch (...) {
        throw saved;
    }
    if (reconnects != nullptr) ++*reconnects;
    if (!WaitForConnection()) throw saved;
    send(command, data, length, longFrame, reconnects);
}

void QorEthernetConnection::send(unsigned char command, const std::vector<unsigned char> &data,
                                 bool longFrame, int *reconnects) {
    QorDeviceConnection::send(command, data, longFrame, reconnects);
}

void QorEthernetConnection::send(unsigned char command, const std::string &data, bool longFrame,
                                 int *reconnects) {
    QorDeviceConnection::send(command, data, longFrame, reconnects);
}

bool QorEthernetConnection::isConnected() const {
    return socket != nullptr && socket->IsConnected();
}

void QorEthernetConnection::close() {
    if (socket != nullptr && socket->IsConnected()) socket->Close(false);
}

void QorEthernetConnection::OnConnect(CSuperSocket &, int, const std::string &) {
    SetEvent(connectEvent);
}

void QorEthernetConnection::OnSend(CSuperSocket &, int, const std::string &) {
    SetEvent(sendEvent);
}

void QorEthernetConnection::OnReceive(CSuperSocket &from, int, const std::string &) {
    qor::EthernetFrameAssembler frame;
    ConnectionTimer timer(qor::ethernet::kReadWaitMs, "QorEthernetConnection::OnReceive");
    if (!qor::ethernet::ReadPart(from, frame, timer, true)) return;
    timer.Restart();
    if (!qor::ethernet::ReadPart(from, frame, timer, false)) return;
    const unsigned char command = frame.Command();
    std::vector<unsigned char> &stored = lastMessages[command];
    stored = frame.TakePayload();
    if (comm != nullptr) comm->notify(command, stored, true);
}
