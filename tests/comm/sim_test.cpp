// End to end against qor-sim in a process of its own: QorDeviceComm over TCP
// and over a pseudo-terminal, replies, error replies, heartbeats during a
// wait, a device that stalls mid-frame, and a clean stop of the simulator.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "CommTestSupport.h"
#include "qor/comm/QorDeviceComm.h"
#include "serial_test_support.h"
#include "tools/sim/SimProcess.h"

namespace sim_test {

const std::string kSimulator = QOR_BINARY_DIR "/tools/qor-sim";

using Payload = std::vector<unsigned char>;

std::string Text(const Payload &payload, std::size_t from = 0) {
    return std::string(payload.begin() + static_cast<long>(std::min(from, payload.size())), payload.end());
}

unsigned U32(const Payload &payload, std::size_t at) {
    if (payload.size() < at + 4) return ~0u;
    return payload[at] | payload[at + 1] << 8 | payload[at + 2] << 16 | static_cast<unsigned>(payload[at + 3]) << 24;
}

class SimulatedInstrument : public ::testing::TestWithParam<bool> {
protected:
    bool Serial() const { return GetParam(); }

    void SetUp() override {
        if (::access(kSimulator.c_str(), X_OK) != 0) GTEST_SKIP() << "qor-sim is not built";
        std::vector<std::string> args{"--heartbeat", "0", "--quiet"};
        if (Serial())
            args.push_back("--serial");
        else
            args.insert(args.end(), {"--tcp", "0"});
        ASSERT_TRUE(sim.Start(kSimulator, args)) << sim.error;
        if (Serial()) {
            port = serial_test::NextPort();
            qor::SetSerialPortPath(port, sim.SerialPath());
            comm.connect(port, 115200, 8, 0, 0, 0);
        } else {
            comm.connect(sim.TcpHost(), sim.TcpPort());
        }
        ASSERT_TRUE(comm.isConnected());
    }
    void TearDown() override {
        comm.disconnect();
        if (port) qor::SetSerialPortPath(port, "");
        if (sim.Running()) {
            EXPECT_EQ(sim.Stop(), 0);
        }
    }

    bool Ask(unsigned char command, Payload data, unsigned char replyCommand, Payload &reply,
             unsigned timeoutMs = 3000) {
        return comm.sendCommand(command, data, timeoutMs, replyCommand, reply, false, nullptr);
    }

    qorsim::SimProcess sim;
    QorDeviceComm comm;
    unsigned port = 0;
};

TEST_P(SimulatedInstrument, EchoesAndReportsStatus) {
    Payload reply;
    ASSERT_TRUE(Ask(0x01, {1, 2, 3}, 0x01, reply));
    EXPECT_EQ(reply, (Payload{1, 2, 3}));
    Payload big(Serial() ? 255 : 4000);
    for (std::size_t i = 0; i < big.size(); ++i) big[i] = static_cast<unsigned char>(i * 7);
    ASSERT_TRUE(Ask(0x01, big, 0x01, reply));
    EXPECT_EQ(reply, big);
    ASSERT_TRUE(Ask(0x02, {}, 0x02, reply));
    EXPECT_EQ(U32(reply, 0), 3u);  // frames received, this one included
    EXPECT_EQ(U32(reply, 8), 0u);  // nothing damaged
}

TEST_P(SimulatedInstrument, ErrorRepliesNameTheCommandThatFailed) {
    std::vector<unsigned char> replyCommands{0x04, 0x7F};
    Payload reply;
    ASSERT_TRUE(comm.sendCommand(0x04, Payload{}, 3000, replyCommands, reply, false, nullptr));
    EXPECT_EQ(replyCommands, Payload{0x7F});
    ASSERT_FALSE(reply.empty());
    EXPECT_EQ(reply[0], 0x04);
    EXPECT_EQ(Text(reply, 1), "simulated failure");

    // The flaky operation fails once on a link, then works.
    replyCommands = {0x06, 0x7F};
    ASSERT_TRUE(comm.sendCommand(0x06, Payload{9}, 3000, replyCommands, reply, false, nullptr));
    EXPECT_EQ(replyCommands, Payload{0x7F});
    EXPECT_EQ(Text(reply, 1), "not ready, try again");
    replyCommands = {0x06, 0x7F};
    ASSERT_TRUE(comm.sendCommand(0x06, Payload{9}, 3000, replyCommands, reply, false, nullptr));
    EXPECT_EQ(replyCommands, Payload{0x06});
    EXPECT_EQ(reply, Payload{9});

    replyCommands = {0x7F};
    ASSERT_TRUE(comm.sendCommand(0x42, Payload{}, 3000, replyCommands, reply, false, nullptr));
    EXPECT_EQ(Text(reply, 1), "unknown command");
}

TEST_P(SimulatedInstrument, HeartbeatsDuringAWaitAreAnsweredAndCounted) {
    Payload reply;
    // The instrument asks for a heartbeat and answers only once it has ours.
    ASSERT_TRUE(Ask(0x09, {}, 0x09, reply));
    EXPECT_EQ(U32(reply, 0), 1u);
    // A slow operation sends a heartbeat first, then its reply.
    ASSERT_TRUE(Ask(0x03, {50, 0}, 0x03, reply));
    EXPECT_EQ(reply, (Payload{50, 0}));
    ASSERT_TRUE(Ask(0x02, {}, 0x02, reply));
    EXPECT_EQ(U32(reply, 4), 2u);  // heartbeat replies received, all well formed
    EXPECT_EQ(U32(reply, 8), 0u);
}

TEST_P(SimulatedInstrument, NoReplyIsATimeoutNotAHang) {
    Payload reply{1};
    EXPECT_FALSE(Ask(0x03, {0xE8, 0x03}, 0x55, reply, 50));  // nobody sends 0x55
    EXPECT_TRUE(reply.empty());
}

INSTANTIATE_TEST_SUITE_P(Link, SimulatedInstrument, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool> &info) {
                             return info.param ? "Serial" : "Tcp";
                         });

TEST(SimulatedSerialInstrument, StallMidFrameIsReportedAndTheLineRecovers) {
    if (::access(kSimulator.c_str(), X_OK) != 0) GTEST_SKIP() << "qor-sim is not built";
    char logName[] = "/tmp/qor-sim-log-XXXXXX";
    int logFd = ::mkstemp(logName);
    ASSERT_GE(logFd, 0);
    ::close(logFd);
    {
        qorsim::SimProcess sim;
        ASSERT_TRUE(sim.Start(kSimulator, {"--serial", "--heartbeat", "0", "--log", logName})) << sim.error;
        unsigned port = serial_test::NextPort();
        qor::SetSerialPortPath(port, sim.SerialPath());
        comm_test::Listener counter;
        QorDeviceComm comm;
        comm.subscribe(counter);
        comm.connect(port, 9600, 8, 0, 0, 0);
        Payload reply;
        EXPECT_FALSE(comm.sendCommand(0x07, Payload{}, 20, 0x07, reply, false, nullptr));
        EXPECT_TRUE(comm_test::WaitUntil([&] { return counter.errors > 0; }));
        ASSERT_TRUE(comm.sendCommand(0x01, Payload{4}, 3000, 0x01, reply, false, nullptr));
        EXPECT_EQ(reply, Payload{4});
        comm.disconnect();
        qor::SetSerialPortPath(port, "");
        EXPECT_EQ(sim.Terminate(SIGTERM), 0);
    }
    std::ifstream file(logName);
    std::stringstream log;
    log << file.rdbuf();
    std::remove(logName);
    EXPECT_NE(log.str().find("serial rx cmd=0x07 len=0"), std::string::npos) << log.str();
    EXPECT_NE(log.str().find("serial tx cmd=0x01 len=1 04"), std::string::npos) << log.str();
    EXPECT_NE(log.str().find("stopping"), std::string::npos) << log.str();
}

TEST(SimulatorProcess, StopsCleanlyOnSignalOrEndOfInputAndLeaksNothing) {
    if (::access(kSimulator.c_str(), X_OK) != 0) GTEST_SKIP() << "qor-sim is not built";
    comm_test::ResourceCheck resources;
    for (int signal : {0, SIGINT, SIGTERM}) {
        qorsim::SimProcess sim;
        ASSERT_TRUE(sim.Start(kSimulator, {"--tcp", "0", "--serial", "--quiet"})) << sim.error;
        EXPECT_NE(sim.TcpPort(), 0u);
        EXPECT_EQ(sim.SerialPath().rfind("/dev/pts/", 0), 0u) << sim.ReadyLine();
        {
            QorDeviceComm comm;
            comm.connect(sim.TcpHost(), sim.TcpPort());
            Payload reply;
            EXPECT_TRUE(comm.sendCommand(0x01, Payload{1}, 3000, 0x01, reply, false, nullptr));
        }
        EXPECT_EQ(signal ? sim.Terminate(signal) : sim.Stop(), 0) << signal;
    }
    EXPECT_TRUE(resources.Clean());
}

TEST(SimulatorProcess, RefusesBadOptions) {
    if (::access(kSimulator.c_str(), X_OK) != 0) GTEST_SKIP() << "qor-sim is not built";
    for (auto args : std::vector<std::vector<std::string>>{{"--tcp", "70000"}, {"--bogus"}, {"--heartbeat"}}) {
        qorsim::SimProcess sim;
        EXPECT_FALSE(sim.Start(kSimulator, args));
        EXPECT_EQ(sim.error, "the simulator ended before it was ready");
    }
}

}  // namespace sim_test
