// The Ethernet link against loopback instruments that misbehave: refuse,
// never answer, close, reset or stall mid-frame, or send huge frames.
#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "CommTestSupport.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/QorEthernetConnection.h"

namespace ethernet_test {

using comm_test::Bytes;
using comm_test::Instrument;
using comm_test::Listener;
using comm_test::LoopbackDevice;
using comm_test::ResourceCheck;
using comm_test::Signal;
using comm_test::WaitUntil;
using comm_test::WireFrame;

// An instrument that only listens.
std::vector<WireFrame> NoAnswer(const WireFrame &) { return {}; }

// Connects, then the device hangs up and stops listening: the link is gone
// and every reconnect is refused.
void ConnectToAVanishingDevice(QorDeviceComm &comm) {
    Signal go;
    LoopbackDevice device([&](int &, LoopbackDevice &) { go.Wait(); });
    comm.connect("127.0.0.1", device.Port());
    go.Set();
    device.Stop();
    ASSERT_TRUE(WaitUntil([&] { return !comm.isConnected(); }));
}

TEST(Ethernet, RefusedAndSilentDevicesGiveTheirTexts) {
    comm_test::ExpectNoLeak([&] {
        QorDeviceComm comm;
        EXPECT_EQ(comm_test::ThrownMessage<QorDeviceCommException>(
                      [&] { comm.connect("127.0.0.1", comm_test::RefusingPort()); }),
                  "Failed to connect to device via Ethernet");
        EXPECT_FALSE(comm.isConnected());
        // Neither form of send goes anywhere without a link.
        const std::string notConnected = "You must connect to the device before sending it commands!";
        EXPECT_EQ(comm_test::ThrownMessage<QorDeviceCommException>(
                      [&] { comm.sendCommand(0x20, Bytes{}, false, nullptr); }),
                  notConnected);
        Bytes reply;  // and a handler of the base class reads the same text
        EXPECT_EQ(comm_test::ThrownMessage<CQorException>(
                      [&] { comm.sendCommand(0x20, Bytes{1}, 100, 0x20, reply, false, nullptr); }),
                  notConnected);
        comm_test::SilentListener silent;
        EXPECT_EQ(comm_test::ThrownMessage<QorDeviceCommException>(
                      [&] { QorEthernetConnection timedOut("127.0.0.1", silent.Port(), &comm); }),
                  "Timed out while trying to connect to device via Ethernet");
        // A name that does not resolve fails in the socket layer.
        EXPECT_THROW(QorEthernetConnection("no-such-host.invalid", 1, &comm), CSuperSocketException);
    });
}

TEST(Ethernet, ReadsFramesOfEverySizeInAnyChunking) {
    comm_test::ExpectNoLeak([&] {
        const Bytes huge(65535, 0xA5);
        LoopbackDevice device([&](int &fd, LoopbackDevice &d) {
            // An empty frame, a frame split byte by byte, two frames in one
            // write, and the largest frame there is.
            comm_test::WriteAll(fd, comm_test::EthernetBytes(0x01, {}));
            for (unsigned char b : comm_test::EthernetBytes(0x02, {1, 2, 3}))
                comm_test::WriteAll(fd, Bytes{b});
            Bytes two = comm_test::EthernetBytes(0x03, {4});
            const Bytes next = comm_test::EthernetBytes(0x04, {5, 6});
            two.insert(two.end(), next.begin(), next.end());
            comm_test::WriteAll(fd, two);
            comm_test::WriteAll(fd, comm_test::EthernetBytes(0x05, huge));
            while (!d.Stopping()) d.WaitReadable(fd, 50);
        });
        QorDeviceComm comm;
        Listener inbox;
        comm.subscribe(inbox);
        comm.connect("127.0.0.1", device.Port());
        EXPECT_EQ(inbox.Wait(5), (Listener::Events{"long 1:", "long 2: 1 2 3", "long 3: 4", "long 4: 5 6",
                                                   Listener::Line("long", 5, huge)}));
        device.Stop();
    });
}

TEST(Ethernet, SendPutsFramesOnTheWire) {
    Instrument device(NoAnswer);
    QorDeviceComm comm;
    comm.connect("127.0.0.1", device.Port());
    const unsigned char bytes[] = {7, 8};
    int reconnects = 0;
    comm.sendCommand(0x10, nullptr, 0, false, &reconnects);  // a 3-byte frame
    comm.sendCommand(0x11, nullptr, 5, false, &reconnects);  // nothing at all
    comm.sendCommand(0x12, bytes, 2, true, &reconnects);
    comm.sendCommand(0x13, Bytes(300, 1), false, &reconnects);
    ASSERT_TRUE(WaitUntil([&] { return device.Count() == 3; }));
    const auto frames = device.Received();
    EXPECT_EQ(frames[0].command, 0x10);
    EXPECT_TRUE(frames[0].payload.empty());
    EXPECT_EQ(frames[1].command, 0x12);
    EXPECT_EQ(frames[1].payload, (Bytes{7, 8}));
    EXPECT_EQ(frames[2].payload.size(), 300u);
    EXPECT_EQ(reconnects, 0);
}

TEST(Ethernet, IncompleteFramesAreDroppedAndTheStreamGoesOn) {
    comm_test::ExpectNoLeak([&] {
        Signal stalledOut;
        LoopbackDevice device([&](int &fd, LoopbackDevice &d) {
            // Header promising ten bytes, four of them, then silence longer
            // than the reader waits; then a whole frame.
            comm_test::WriteAll(fd, Bytes{0x20, 10, 0, 1, 2, 3, 4});
            d.WaitReadable(fd, 1300);
            comm_test::WriteAll(fd, comm_test::EthernetBytes(0x21, {9}));
            while (!d.Stopping()) d.WaitReadable(fd, 50);
        });
        QorDeviceComm comm;
        Listener inbox;
        comm.subscribe(inbox);
        comm.connect("127.0.0.1", device.Port());
        // No notice of the dropped frame on this link.
        EXPECT_EQ(inbox.Wait(1), Listener::Events{"long 33: 9"});
        device.Stop();
    });
}

TEST(Ethernet, PeerClosingOrResettingMidFrameThenReconnect) {
    for (bool reset : {false, true}) {
        ResourceCheck resources;
        {
            std::atomic<int> sessions{0};
            Signal go;
            Instrument device(NoAnswer, [&](int &fd) {
                if (++sessions > 1) return false;
                go.Wait();
                comm_test::WriteAll(fd, Bytes{0x30, 200, 0, 1, 2});
                if (reset) {
                    comm_test::ResetConnection(fd);
                    fd = -1;
                }
                return true;
            });
            QorDeviceComm comm;
            Listener inbox;
            comm.subscribe(inbox);
            comm.connect("127.0.0.1", device.Port());
            go.Set();
            // The link notices the end by itself; nothing reconnects yet.
            ASSERT_TRUE(WaitUntil([&] { return !comm.isConnected(); }));
            EXPECT_EQ(inbox.Count(), 0u);
            EXPECT_EQ(sessions, 1);
            // The next send reconnects once and goes through.
            int reconnects = 0;
            comm.sendCommand(0x31, Bytes{1}, false, &reconnects);
            EXPECT_EQ(reconnects, 1);
            EXPECT_TRUE(comm.isConnected());
            ASSERT_TRUE(WaitUntil([&] { return device.Count() == 1; }));
            EXPECT_EQ(device.Received()[0].command, 0x31);
            device.Stop();
        }
        EXPECT_TRUE(resources.Clean()) << resources.Report() << (reset ? " reset" : " close");
    }
}

TEST(Ethernet, SendGivesUpAfterSixAttemptsWithTheLastReason) {
    comm_test::ExpectNoLeak([&] {
        QorDeviceComm comm;
        ConnectToAVanishingDevice(comm);
        int reconnects = 0;
        EXPECT_EQ(comm_test::ThrownMessage<CSuperSocketException>(
                      [&] { comm.sendCommand(0x40, Bytes{1}, false, &reconnects); }),
                  "CSuperSocket::Send::socket not open");
        EXPECT_EQ(reconnects, 5);
        EXPECT_EQ(QorEthernetConnection::sendRetries.load(), 0);
        // The count starts again for the next failure sequence.
        reconnects = 0;
        EXPECT_THROW(comm.sendCommand(0x40, Bytes{1}, false, &reconnects), CSuperSocketException);
        EXPECT_EQ(reconnects, 5);
    });
}

TEST(Ethernet, WaitingSendCommandSurvivesALinkFailure) {
    // The waiting call lets the link's exception through and frees its locks:
    // the object is usable again afterwards.
    QorDeviceComm comm;
    ConnectToAVanishingDevice(comm);
    Bytes reply;
    EXPECT_THROW(comm.sendCommand(0x50, Bytes{}, 100, 0x51, reply, false, nullptr),
                 CSuperSocketException);
    comm.notify(0x51, Bytes{1}, true);  // takes replyLock: must not block
    EXPECT_THROW(comm.sendCommand(0x50, Bytes{}, 100, 0x51, reply, false, nullptr),
                 CSuperSocketException);
}

TEST(Ethernet, DestroyingWhileAFrameIsHalfReadDoesNotHang) {
    comm_test::ExpectNoLeak([&] {
        Signal sent;
        LoopbackDevice device([&](int &fd, LoopbackDevice &d) {
            comm_test::WriteAll(fd, Bytes{0x60, 0xFF, 0xFF, 1});
            sent.Set();
            while (!d.Stopping()) d.WaitReadable(fd, 50);
        });
        {
            QorDeviceComm comm;
            comm.connect("127.0.0.1", device.Port());
            ASSERT_TRUE(sent.Wait());
        }
        device.Stop();
    });
}

}  // namespace ethernet_test
