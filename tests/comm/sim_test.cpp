// The simulator as a process of its own: it starts with a TCP port and a
// pseudo-terminal, serves QorDeviceComm, and stops cleanly on a signal or at
// the end of its input. What QorDeviceComm does over each link is pinned byte
// for byte by the in-process tests, and end to end by the device verb's test.
#include <gtest/gtest.h>

#include "CommTestSupport.h"
#include "qor/comm/QorDeviceComm.h"
#include "tools/sim/SimProcess.h"

namespace sim_test {

const std::string kSimulator = QOR_BINARY_DIR "/tools/qor-sim";

using Payload = std::vector<unsigned char>;

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
