#include "qor/comm/QorSerialConnection.h"

#include "qor/comm/DeviceFrame.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/QorDeviceCommException.h"
#include "qor/platform/Waitable.h"

namespace qor {
namespace serial_link {

// Each of the reader's two reads gives up after a second.
constexpr unsigned long kFrameReadTimeoutMs = 1000;
// How long the reader sleeps on an idle line between looks at its stop event.
constexpr DWORD kIdleWaitMs = 10;
// With a frame's first bytes in, the rest is a moment away: look again soon.
constexpr DWORD kPartialWaitMs = 1;

class PortSource : public SerialByteSource {
public:
    explicit PortSource(CSerial &serial) : serial(serial) {}
    unsigned long Waiting() override { return serial.bytesinserialqueue(); }
    std::string Read(unsigned long count, unsigned long timeoutMs, unsigned long &received) override {
        return serial.read(count, timeoutMs, received);
    }

private:
    CSerial &serial;
};

}  // namespace serial_link

SerialReadResult ReadSerialMessage(SerialByteSource &source) {
    SerialReadResult result;
    if (source.Waiting() < kSerialProbeSize) return result;

    unsigned long received = 0;
    std::string frame = source.Read(kSerialProbeSize, serial_link::kFrameReadTimeoutMs, received);
    if (received != kSerialProbeSize || frame.size() != kSerialProbeSize ||
        static_cast<unsigned char>(frame[0]) != kSerialStartByte) {
        result.kind = SerialReadResult::Dropped;
        return result;
    }
    // The count is taken as the 32-bit value devices compute, so a negative
    // length asks for an enormous count and the read runs out its second.
    const long rest = SerialFrameRemainder(reinterpret_cast<const unsigned char *>(frame.data()));
    const unsigned long count = static_cast<DWORD>(rest);
    frame += source.Read(count, serial_link::kFrameReadTimeoutMs, received);

    DecodedSerialFrame decoded;
    DecodeSerialFrame(reinterpret_cast<const unsigned char *>(frame.data()), frame.size(), decoded);
    result.longFrame = decoded.longFrame;
    result.command = decoded.command;
    if (!decoded.checksumOk) {
        result.kind = SerialReadResult::Damaged;
        return result;
    }
    result.kind = SerialReadResult::Message;
    result.payload = std::move(decoded.payload);
    return result;
}

}  // namespace qor

QorSerialConnection::QorSerialConnection() = default;

QorSerialConnection::QorSerialConnection(unsigned short port, unsigned long baud, QorDeviceComm *comm,
                                         unsigned char byteSize, unsigned char parity,
                                         unsigned char stopBits, short flowControl)
    : QorDeviceConnection(comm) {
    if (!serial.Open(static_cast<short>(port), static_cast<long>(baud), byteSize, parity, stopBits,
                     flowControl))
        throw QorDeviceCommException("Failed to open the specified serial port");
    COMMTIMEOUTS timeouts{10, 10, 10, 2, 50};
    serial.SetCommTimeouts(timeouts);
    stopEvent = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    readThread = qor::BeginThread([this]() -> DWORD {
        ReadLoop();
        return 0;
    });
}

QorSerialConnection::~QorSerialConnection() {
    if (stopEvent && readThread) {
        SetEvent(stopEvent);
        WaitForSingleObject(readThread, INFINITE);
    }
    if (readThread) CloseHandle(readThread);
    if (stopEvent) CloseHandle(stopEvent);
    readThread = nullptr;
    stopEvent = nullptr;
    serial.Close();
}

void QorSerialConnection::ReadLoop() {
    qor::serial_link::PortSource source(serial);
    for (;;) {
        if (WaitForSingleObject(stopEvent, 0) != WAIT_TIMEOUT) return;
        unsigned long waiting = serial.bytesinserialqueue();
        if (waiting == 0) {
            serial.WaitForInput(qor::serial_link::kIdleWaitMs);
            continue;
        }
        if (waiting < qor::kSerialProbeSize) {
            if (WaitForSingleObject(stopEvent, qor::serial_link::kPartialWaitMs) != WAIT_TIMEOUT) return;
            continue;
        }
        qor::SerialReadResult got = qor::ReadSerialMessage(source);
        if (got.kind == qor::SerialReadResult::Damaged) {
            comm->notifyError();
        } else if (got.kind == qor::SerialReadResult::Message) {
            std::vector<unsigned char> &stored = lastMessages[got.command];
            stored = std::move(got.payload);
            comm->notify(got.command, stored, got.longFrame);
        }
    }
}

void QorSerialConnection::send(unsigned char command, const unsigned char *data, unsigned int length,
                               bool longFrame, int *reconnects) {
    if (reconnects) *reconnects = 0;
    SerialFrame frame(command, data, length, longFrame);
    serial.write(reinterpret_cast<const char *>(frame.bytes.data()),
                 static_cast<unsigned int>(frame.bytes.size() & 0xFFFFu));
}

void QorSerialConnection::send(unsigned char command, const std::vector<unsigned char> &data,
                               bool longFrame, int *reconnects) {
    QorDeviceConnection::send(command, data, longFrame, reconnects);
}

void QorSerialConnection::send(unsigned char command, const std::string &data, bool longFrame,
                               int *reconnects) {
    QorDeviceConnection::send(command, data, longFrame, reconnects);
}

bool QorSerialConnection::isConnected() const { return serial.IsOpen(); }

void QorSerialConnection::close() { serial.Close(); }
