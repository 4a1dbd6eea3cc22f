// QorSerialConnection: the device link over a serial line.
//
// Frames go out in the short or long serial format with their CRC-16. A read
// thread of the link's own waits for frames and hands each good one to
// QorDeviceComm::notify, each damaged one to notifyError. It takes five bytes
// at a time and drops them unless they start with 0x11, which is how it finds
// its way back into a disturbed stream; it does not search for the start byte.
//
// There is no reconnection on this link: it is opened by the constructor or
// not at all, and `reconnects` is always set to 0.
#pragma once

#include <string>
#include <vector>

#include "qor/comm/CSerial.h"
#include "qor/comm/QorDeviceConnection.h"
#include "qor/platform/Win32Types.h"

class QorDeviceComm;

class QorSerialConnection : public QorDeviceConnection {
public:
    // Opens the port and starts the read thread. Throws QorDeviceCommException
    // "Failed to open the specified serial port" when the port won't open.
    QorSerialConnection(unsigned short port, unsigned long baud, QorDeviceComm *comm,
                        unsigned char byteSize, unsigned char parity, unsigned char stopBits,
                        short flowControl);
    // A link with no port and no thread.
    QorSerialConnection();
    // Stops the read thread (it notices between frames, so this can take up
    // to two seconds while a frame is stuck half way) and closes the port.
    ~QorSerialConnection() override;

    // Writes one frame. A failed write is silent: it shows as a reply that
    // doesn't come.
    void send(unsigned char command, const unsigned char *data, unsigned int length,
              bool longFrame, int *reconnects) override;
    void send(unsigned char command, const std::vector<unsigned char> &data, bool longFrame,
              int *reconnects) override;
    void send(unsigned char command, const std::string &data, bool longFrame,
              int *reconnects) override;
    bool isConnected() const override;
    // Closes the port; the read thread keeps running on the closed port until
    // the object goes.
    void close() override;

    CSerial serial;
    HANDLE readThread = nullptr;
    HANDLE stopEvent = nullptr;

private:
    void ReadLoop();
};

namespace qor {

// Where the serial frame reader takes its bytes from: the port, or a buffer.
class SerialByteSource {
public:
    virtual ~SerialByteSource() = default;
    // Bytes ready to be read now.
    virtual unsigned long Waiting() = 0;
    // As CSerial::read(count, timeoutMs, received).
    virtual std::string Read(unsigned long count, unsigned long timeoutMs,
                             unsigned long &received) = 0;
};

// What one pass of the reader found.
struct SerialReadResult {
    enum Kind {
        Idle,     // fewer than five bytes waiting
        Dropped,  // five bytes that did not start a frame, thrown away
        Damaged,  // a frame whose checksum is wrong (or that came short)
        Message,  // a good frame
    } kind = Idle;
    unsigned char command = 0;
    bool longFrame = false;
    std::vector<unsigned char> payload;
};

// One pass of the serial read loop: with five bytes waiting, reads them, and
// when they start a frame, reads the rest the header announces (for at most a
// second) and checks the CRC against a frame rebuilt from command and payload.
SerialReadResult ReadSerialMessage(SerialByteSource &source);

}  // namespace qor
