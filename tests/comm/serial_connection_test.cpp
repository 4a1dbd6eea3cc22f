// QorSerialConnection under QorDeviceComm, with the test playing the device on
// the other end of a pseudo-terminal: frames on the wire, the reader's
// five-byte resynchronisation, checksum errors, stalls and huge lengths,
// heartbeats, and that nothing leaks.
#include <gtest/gtest.h>

#include <thread>

#include "CommTestSupport.h"
#include "qor/comm/DeviceFrame.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/QorSerialConnection.h"
#include "serial_test_support.h"

using serial_test::Bytes;
using serial_test::PtyLine;

namespace serial_connection_test {

std::string Frame(unsigned char command, std::vector<unsigned char> payload, bool longFrame) {
    std::vector<unsigned char> bytes = qor::EncodeSerialFrame(command, payload, longFrame);
    return std::string(bytes.begin(), bytes.end());
}

class SerialLink : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(line.Ok());
        comm.subscribe(recorder);
        comm.connect(line.port, 9600, 8, 0, 0, 0);
        ASSERT_TRUE(comm.isConnected());
    }
    PtyLine line;
    comm_test::Listener recorder;
    QorDeviceComm comm;
};

TEST_F(SerialLink, PutsShortAndLongFramesOnTheWire) {
    comm.sendCommand(0x21, std::vector<unsigned char>{0x41}, false, nullptr);
    EXPECT_EQ(line.Read(6), Bytes({0x11, 0x21, 0x01, 0x41, 0xB7, 0x31}));
    comm.sendCommand(0x30, std::vector<unsigned char>{}, true, nullptr);
    EXPECT_EQ(line.Read(10), Frame(0x30, {}, true));  // bytes checked in the frame tests
}

TEST_F(SerialLink, ResynchronisesAndChecksFramesTheWayDevicesExpect) {
    struct Case {
        const char *what;
        std::string stream;
        std::vector<std::string> events;
    };
    std::string damaged = Frame(0x22, {1, 2, 3}, false);
    damaged[4] ^= 0x40;
    const Case cases[] = {
        {"short frame", Frame(0x21, {0x41}, false), {"short 33: 65"}},
        {"long frame", Frame(0x21, {1, 2}, true), {"long 33: 1 2"}},
        {"empty short frame is complete with its header", Frame(0x40, {}, false), {"short 64:"}},
        {"long frame with header length 3 is empty", Frame(0x41, {}, true), {"long 65:"}},
        {"five bytes of garbage cost exactly five bytes",
         Bytes({0xAA, 0xBB, 0xCC, 0xDD, 0xEE}) + Frame(0x23, {9}, false), {"short 35: 9"}},
        {"checksum error, then the stream goes on", damaged + Frame(0x24, {7}, false),
         {"error", "short 36: 7"}},
        {"payload of 300 bytes in a long frame", Frame(0x25, std::vector<unsigned char>(300, 0x5A), true),
         {"long 37:" + [] {
              std::string s;
              for (int i = 0; i < 300; ++i) s += " 90";
              return s;
          }()}},
    };
    std::size_t seen = 0;
    for (const Case &c : cases) {
        line.Write(c.stream);
        std::vector<std::string> events = recorder.Wait(seen + c.events.size());
        ASSERT_GE(events.size(), seen + c.events.size()) << c.what;
        EXPECT_EQ(std::vector<std::string>(events.begin() + static_cast<long>(seen), events.end()), c.events)
            << c.what;
        seen = events.size();
    }
}

TEST_F(SerialLink, StalledOrHugeFramesEndInAnErrorAndTheLineRecovers) {
    // A short frame announcing 10 payload bytes, of which 3 come.
    line.Write(Bytes({0x11, 0x26, 0x0A, 1, 2, 3}));
    EXPECT_EQ(recorder.Wait(1), std::vector<std::string>{"error"});
    // A long frame whose length has its top bit set asks for an enormous count.
    line.Write(Bytes({0x11, 0x05, 0x00, 0x00, 0x80, 0x27, 0x00, 0x80}));
    EXPECT_EQ(recorder.Wait(2), (std::vector<std::string>{"error", "error"}));
    line.Write(Frame(0x28, {5}, false));
    EXPECT_EQ(recorder.Wait(3), (std::vector<std::string>{"error", "error", "short 40: 5"}));
}

TEST_F(SerialLink, AnswersHeartbeatsWithoutShowingThem) {
    line.Write(Frame(0x0E, {}, false));
    EXPECT_EQ(line.Read(14), Frame(0x0F, {1, 0, 0, 0}, true));
    line.Write(Frame(0x29, {}, false));
    EXPECT_EQ(recorder.Wait(1), std::vector<std::string>{"short 41:"});
}

TEST_F(SerialLink, WaitingSendGetsItsReplyThroughAHeartbeat) {
    std::thread device([&] {
        std::string request = line.Read(6);
        line.Write(Frame(0x0E, {}, false));  // the device checks on us first
        std::string heartbeatReply = line.Read(14);
        if (heartbeatReply == Frame(0x0F, {1, 0, 0, 0}, true))
            line.Write(Frame(0x31, {static_cast<unsigned char>(request.size() == 6 ? request[3] : 0)}, false));
    });
    std::vector<unsigned char> reply;
    EXPECT_TRUE(comm.sendCommand(0x31, std::vector<unsigned char>{0x77}, 3000, 0x31, reply, false, nullptr));
    EXPECT_EQ(reply, std::vector<unsigned char>{0x77});
    device.join();
}

TEST_F(SerialLink, ClosedLinkKeepsItsThreadUntilDestroyed) {
    comm.disconnect();
    EXPECT_FALSE(comm.isConnected());
    auto *link = new QorSerialConnection(static_cast<unsigned short>(line.port), 9600, &comm, 8, 0, 0, 0);
    link->close();
    EXPECT_FALSE(link->isConnected());
    int reconnects = 5;
    link->send(0x21, nullptr, 0, false, &reconnects);  // silent on a closed port
    EXPECT_EQ(reconnects, 0);
    delete link;
}

TEST(SerialLinkLifetime, NothingLeaksWhetherTheDeviceStaysOrVanishes) {
    comm_test::ExpectNoLeak([&] {
        PtyLine line;
        QorDeviceComm comm;
        comm.connect(line.port, 115200, 8, 0, 0, 0);
        comm.sendCommand(0x21, std::vector<unsigned char>{1}, false, nullptr);
        line.Read(6);
        comm.disconnect();
        comm.connect(line.port, 115200, 8, 0, 0, 0);
        // the device goes away while the link reads
        line.CloseMaster();
        comm.sendCommand(0x21, std::vector<unsigned char>{1}, false, nullptr);
    });
}

TEST(SerialLinkLifetime, UnopenablePortThrowsTheSystemTextAndLeaksNothing) {
    comm_test::ResourceCheck resources;
    unsigned port = serial_test::NextPort();
    qor::SetSerialPortPath(port, "/nonexistent/tty");
    {
        QorDeviceComm comm;
        EXPECT_EQ(comm_test::ThrownMessage<QorDeviceCommException>(
                      [&] { comm.connect(port, 9600, 8, 0, 0, 0); }),
                  "Failed to open the specified serial port");
        EXPECT_FALSE(comm.isConnected());
    }
    qor::SetSerialPortPath(port, "");
    EXPECT_TRUE(resources.Clean());
}

}  // namespace serial_connection_test
