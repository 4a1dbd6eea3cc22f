// `qor device send` against the simulator: the reply in hex, the exit status,
// and the system's own texts on failure.
#include <gtest/gtest.h>

#include "support/RunCommand.h"
#include "tools/sim/SimProcess.h"

namespace sim_device_cli_test {

const std::string kSimulator = QOR_BINARY_DIR "/tools/qor-sim";
const std::string kQor = QOR_BINARY_DIR "/tools/qor";

qor_test::Ran RunQor(const std::string &arguments) { return qor_test::RunCommand(kQor + " " + arguments); }

TEST(DeviceVerb, SendsOverTcpAndSerialAndReportsFailures) {
    if (::access(kSimulator.c_str(), X_OK) != 0 || ::access(kQor.c_str(), X_OK) != 0)
        GTEST_SKIP() << "qor or qor-sim is not built";
    qorsim::SimProcess sim;
    ASSERT_TRUE(sim.Start(kSimulator, {"--tcp", "0", "--serial", "--heartbeat", "0", "--quiet"})) << sim.error;
    const std::string tcp = "127.0.0.1:" + std::to_string(sim.TcpPort());
    struct Case {
        std::string arguments;
        int status;
        std::string out;
    };
    const Case cases[] = {
        {"device send " + tcp + " 0x01 '0a 0b:0c'", 0, "reply 0x01 (3 bytes): 0a 0b 0c\n"},
        {"device send " + sim.SerialPath() + " 1 ff --baud 115200", 0, "reply 0x01 (1 bytes): ff\n"},
        {"device send " + sim.SerialPath() + " 1 0102 --long", 0, "reply 0x01 (2 bytes): 01 02\n"},
        {"device send " + tcp + " 4 --wait 4,0x7f", 0,
         "reply 0x7F (18 bytes): 04 73 69 6d 75 6c 61 74 65 64 20 66 61 69 6c 75 72 65\n"},
        {"device send " + tcp + " 0x42 --wait 0x7f", 0,
         "reply 0x7F (16 bytes): 42 75 6e 6b 6e 6f 77 6e 20 63 6f 6d 6d 61 6e 64\n"},
        {"device send " + tcp + " 3 e803 --wait 0x55 --timeout 50", 1, "qor device: no reply within 50 ms\n"},
        {"device send " + tcp + " 1 --no-wait", 0, ""},
        {"device send /nonexistent/tty 1", 1, "qor device: Failed to open the specified serial port\n"},
        {"device send " + tcp + " 300", 2, "qor: device send: not a command byte: 300\n"},
        {"device send " + tcp + " 1 abc", 2, "qor: device send: the payload is not hex bytes: abc\n"},
        {"device frobnicate", 2, "qor: device: unknown sub-verb 'frobnicate' (see qor device --help)\n"},
    };
    for (const Case &c : cases) {
        qor_test::Ran outcome = RunQor(c.arguments);
        EXPECT_EQ(outcome.status, c.status) << c.arguments << "\n" << outcome.out;
        EXPECT_EQ(outcome.out, c.out) << c.arguments;
    }
    // a port nobody listens on: refused, in the system's words
    sim.Stop();
    qor_test::Ran refused = RunQor("device send " + tcp + " 1");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "qor device: Failed to connect to device via Ethernet\n");
    qor_test::Ran help = RunQor("device --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("usage: qor device send TARGET COMMAND"), std::string::npos);
}

}  // namespace sim_device_cli_test
