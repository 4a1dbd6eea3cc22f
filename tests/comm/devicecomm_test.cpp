// QorDeviceComm over a real Ethernet link to a loopback instrument: routing
// of replies to waiters and subscribers, heartbeats, and the overloads.
#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "CommTestSupport.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/QorEthernetConnection.h"

namespace devicecomm_test {

using comm_test::Bytes;
using comm_test::Instrument;
using comm_test::Listener;
using comm_test::LoopbackDevice;
using comm_test::Signal;
using comm_test::WaitUntil;
using comm_test::WireFrame;

std::vector<WireFrame> Echo(const WireFrame &request) { return {request}; }

TEST(DeviceComm, RoundTripDeliversToWaiterAndSubscribers) {
    comm_test::ExpectNoLeak([&] {
        Instrument instrument([](const WireFrame &r) {
            return std::vector<WireFrame>{{static_cast<unsigned char>(r.command + 1), r.payload}};
        });
        QorDeviceComm comm;
        Listener all;
        comm.subscribe(all);
        comm.connect("127.0.0.1", instrument.Port());
        EXPECT_TRUE(comm.isConnected());
        Bytes reply;
        ASSERT_TRUE(comm.sendCommand(0x20, Bytes{9, 8, 7}, 2000, 0x21, reply, false, nullptr));
        EXPECT_EQ(reply, (Bytes{9, 8, 7}));
        // The waiter and the subscribers both get it; Ethernet messages are long.
        EXPECT_EQ(all.Wait(1), Listener::Events{"long 33: 9 8 7"});
        comm.disconnect();
        EXPECT_FALSE(comm.isConnected());
    });
}

TEST(DeviceComm, TwoWaitersOnOneCommandAreServedOldestFirst) {
    // The instrument answers both requests only once it has both, in order.
    Instrument instrument([&](const WireFrame &) { return std::vector<WireFrame>{}; });
    QorDeviceComm comm;
    comm.connect("127.0.0.1", instrument.Port());
    Bytes firstReply, secondReply;
    bool firstOk = false, secondOk = false;
    std::thread first([&] {
        firstOk = comm.sendCommand(0x30, Bytes{0xA}, 5000, 0x31, firstReply, false, nullptr);
    });
    ASSERT_TRUE(WaitUntil([&] { return instrument.Count() == 1; }));
    std::thread second([&] {
        secondOk = comm.sendCommand(0x30, Bytes{0xB}, 5000, 0x31, secondReply, false, nullptr);
    });
    ASSERT_TRUE(WaitUntil([&] { return instrument.Count() == 2; }));
    instrument.Push(0x31, {1});
    instrument.Push(0x31, {2});
    first.join();
    second.join();
    EXPECT_TRUE(firstOk);
    EXPECT_TRUE(secondOk);
    EXPECT_EQ(firstReply, Bytes{1});
    EXPECT_EQ(secondReply, Bytes{2});
}

TEST(DeviceComm, SeveralReplyCommandsTellWhichOneAnswered) {
    Instrument instrument([](const WireFrame &) { return std::vector<WireFrame>{{0x43, {5}}}; });
    QorDeviceComm comm;
    comm.connect("127.0.0.1", instrument.Port());
    Bytes replyCommands = {0x41, 0x42, 0x43}, reply;
    ASSERT_TRUE(comm.sendCommand(0x40, Bytes{}, 2000, replyCommands, reply, false, nullptr));
    EXPECT_EQ(replyCommands, Bytes{0x43});
    EXPECT_EQ(reply, Bytes{5});
}

TEST(DeviceComm, FirstReplyCommandInListOrderWinsWhenSeveralArrived) {
    Instrument instrument([](const WireFrame &) { return std::vector<WireFrame>{}; });
    QorDeviceComm comm;
    Listener all;
    comm.subscribe(all);
    comm.connect("127.0.0.1", instrument.Port());
    ASSERT_TRUE(WaitUntil([&] { return instrument.Connected(); }));
    // On its first call the callback has the instrument answer with 0x43 and
    // then 0x41, and returns only once both are routed: the next look finds both.
    struct Script {
        Instrument *instrument;
        Listener *listener;
        int calls = 0;
    } script{&instrument, &all};
    auto answerTwice = [](int, void *argument) {
        auto *s = static_cast<Script *>(argument);
        if (++s->calls == 1) {
            s->instrument->Push(0x43, {3});
            s->instrument->Push(0x41, {1});
            s->listener->Wait(2);
        }
        return false;
    };
    Bytes replyCommands = {0x41, 0x43}, reply;
    ASSERT_TRUE(comm.sendCommand(0x40, Bytes{}, 5000, replyCommands, reply, false, nullptr,
                                 answerTwice, &script));
    EXPECT_EQ(replyCommands, Bytes{0x41});
    EXPECT_EQ(reply, Bytes{1});
}

TEST(DeviceComm, HeartbeatIsAnsweredAndShownToNobody) {
    Instrument instrument([](const WireFrame &r) -> std::vector<WireFrame> {
        if (r.command == 0x50) return {{0x0E, {}}, {0x51, {1}}};
        return {};
    });
    QorDeviceComm comm;
    Listener all, heartbeats;
    comm.subscribe(all);
    comm.subscribe(0x0E, heartbeats);
    comm.connect("127.0.0.1", instrument.Port());
    Bytes reply;
    ASSERT_TRUE(comm.sendCommand(0x50, Bytes{}, 2000, 0x51, reply, false, nullptr));
    ASSERT_TRUE(WaitUntil([&] { return instrument.Count() == 2; }));
    const auto received = instrument.Received();
    EXPECT_EQ(received[1].command, 0x0F);
    EXPECT_EQ(received[1].payload, (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(all.Wait(1), Listener::Events{"long 81: 1"});
    EXPECT_EQ(heartbeats.Count(), 0u);
    // A waiter for 0x0E itself never sees one: it times out.
    instrument.Push(0x0E, {});
    Bytes nothing;
    std::thread pusher([&] {
        WaitUntil([&] { return instrument.Count() >= 3; });
        instrument.Push(0x0E, {});
    });
    EXPECT_FALSE(comm.sendCommand(0x52, Bytes{}, 300, 0x0E, nothing, false, nullptr));
    pusher.join();
    ASSERT_TRUE(WaitUntil([&] { return instrument.Count() == 5; }));
}

TEST(DeviceComm, DataIsTheReplyBufferInTheShortOverload) {
    Instrument instrument([](const WireFrame &r) {
        return std::vector<WireFrame>{{r.command, {static_cast<unsigned char>(r.payload.size())}}};
    });
    QorDeviceComm comm;
    comm.connect("127.0.0.1", instrument.Port());
    Bytes data = {1, 2, 3, 4};
    ASSERT_TRUE(comm.sendCommand(0x60, data, 2000, false, nullptr));
    EXPECT_EQ(data, Bytes{4});
    // Timed out: the buffer was emptied right after the send, and stays so.
    Instrument silent([](const WireFrame &) { return std::vector<WireFrame>{}; });
    comm.connect("127.0.0.1", silent.Port());
    data = {1, 2, 3};
    EXPECT_FALSE(comm.sendCommand(0x61, data, 30, false, nullptr));
    EXPECT_TRUE(data.empty());
    ASSERT_TRUE(WaitUntil([&] { return silent.Count() == 1; }));
    EXPECT_EQ(silent.Received()[0].payload, (Bytes{1, 2, 3}));
}

TEST(DeviceComm, ZeroTimeoutAndCallbackStopEndTheWait) {
    Instrument silent([](const WireFrame &) { return std::vector<WireFrame>{}; });
    QorDeviceComm comm;
    comm.connect("127.0.0.1", silent.Port());
    Bytes reply = {9};
    EXPECT_FALSE(comm.sendCommand(0x70, Bytes{}, 0, 0x71, reply, false, nullptr));
    EXPECT_TRUE(reply.empty());
    int calls = 0;
    auto stopAtThird = [](int command, void *argument) {
        EXPECT_EQ(command, 0x70);
        return ++*static_cast<int *>(argument) == 3;
    };
    Bytes replyCommands = {0x71};
    EXPECT_FALSE(comm.sendCommand(0x70, Bytes{}, 60000, replyCommands, reply, false, nullptr,
                                  stopAtThird, &calls));
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(replyCommands, Bytes{0x71});
}

TEST(DeviceComm, SubscriptionsDeliverAsOftenAsTheyWereMade) {
    QorDeviceComm comm;
    Listener all, one, both;
    comm.subscribe(all);
    comm.subscribe(all);  // no double for all commands
    comm.subscribe(0x10, one);
    comm.subscribe(0x10, one);  // twice for one command: delivered twice
    comm.subscribe(0x10, both);
    comm.subscribe(0x11, both);
    comm.subscribe(both);
    comm.notify(0x10, Bytes{1}, false);
    comm.notify(0x11, Bytes{2}, true);
    EXPECT_EQ(all.Count(), 2u);
    EXPECT_EQ(one.Count(), 2u);
    EXPECT_EQ(one.Got()[0], "short 16: 1");
    EXPECT_EQ(both.Count(), 4u);  // as a subscriber to all, and per command
    // A damaged message: all-command subscribers, then each distinct per-command one once.
    comm.notifyError();
    EXPECT_EQ(all.Errors(), 1u);
    EXPECT_EQ(one.Errors(), 1u);
    EXPECT_EQ(both.Errors(), 2u);  // in both lists: twice
    comm.unsubscribe(0x10, both);
    comm.notify(0x10, Bytes{}, true);
    EXPECT_EQ(both.Count(), 5u);
    comm.unsubscribe(both);
    comm.notify(0x11, Bytes{}, true);
    EXPECT_EQ(both.Count(), 5u);
    EXPECT_EQ(one.Count(), 4u);
    comm.unsubscribe(one);
    comm.notify(0x10, Bytes{}, true);
    EXPECT_EQ(one.Count(), 4u);
    EXPECT_EQ(all.Count(), 5u);
}

TEST(DeviceComm, TakesALinkItIsGivenAndSurvivesAFailedSerialOpen) {
    comm_test::ExpectNoLeak([&] {
        Instrument instrument(Echo);
        QorDeviceComm comm;
        auto *link = new QorEthernetConnection("127.0.0.1", instrument.Port(), &comm);
        comm.connect(link);
        comm.connect(link);  // the same link again: kept, not destroyed
        Bytes data = {4, 2};
        ASSERT_TRUE(comm.sendCommand(0x22, data, 2000, false, nullptr));
        EXPECT_EQ(data, (Bytes{4, 2}));
        EXPECT_EQ(link->lastMessages[0x22], (Bytes{4, 2}));
        // A serial port that does not exist: the old link is gone, no new one.
        EXPECT_EQ(comm_test::ThrownMessage<QorDeviceCommException>(
                      [&] { comm.connect(9999, 9600, 8, 0, 0, 0); }),
                  "Failed to open the specified serial port");
        EXPECT_FALSE(comm.isConnected());
    });
}

}  // namespace devicecomm_test
