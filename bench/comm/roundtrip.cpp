// Round trips to qor-sim: the waiting QorDeviceComm::sendCommand next to a raw
// ping-pong of the same frames on the same simulator, over loopback TCP and
// over a pseudo-terminal. Prints the ratios at the end.
//
// Goals: over TCP the waiting send costs at most 3 times the raw round trip;
// over the serial line no more than the 10 ms write pacing plus 2 ms.
#include <benchmark/benchmark.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "qor/comm/DeviceFrame.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/SerialPorts.h"
#include "support/BenchTimes.h"
#include "tools/sim/SimProcess.h"

namespace {

const std::string kSimulator = QOR_BINARY_DIR "/tools/qor-sim";
constexpr unsigned char kEcho = 0x01;
constexpr std::size_t kPayloadSize = 16;
constexpr unsigned kSerialPort = 250;

qorsim::SimProcess g_sim;

std::vector<unsigned char> Payload() {
    std::vector<unsigned char> payload(kPayloadSize);
    for (std::size_t i = 0; i < payload.size(); ++i) payload[i] = static_cast<unsigned char>(i);
    return payload;
}

bool WriteAll(int fd, const std::vector<unsigned char> &bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n <= 0) return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

bool ReadAll(int fd, std::size_t count) {
    unsigned char buffer[512];
    std::size_t got = 0;
    while (got < count) {
        pollfd waiter{fd, POLLIN, 0};
        if (::poll(&waiter, 1, 2000) <= 0) return false;
        ssize_t n = ::read(fd, buffer, std::min(sizeof buffer, count - got));
        if (n <= 0) return false;
        got += static_cast<std::size_t>(n);
    }
    return true;
}

void RawTcpPingPong(benchmark::State &state) {
    int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(g_sim.TcpPort()));
    ::inet_pton(AF_INET, g_sim.TcpHost().c_str(), &address.sin_addr);
    int yes = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    if (::connect(fd, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) {
        state.SkipWithError("cannot connect to the simulator");
        ::close(fd);
        return;
    }
    std::vector<unsigned char> frame = qor::EncodeEthernetFrame(kEcho, Payload());
    for (auto _ : state) {
        if (!WriteAll(fd, frame) || !ReadAll(fd, frame.size())) {
            state.SkipWithError("raw round trip failed");
            break;
        }
    }
    ::close(fd);
}

void SendCommandTcp(benchmark::State &state) {
    QorDeviceComm comm;
    comm.connect(g_sim.TcpHost(), g_sim.TcpPort());
    std::vector<unsigned char> payload = Payload(), reply;
    for (auto _ : state) {
        if (!comm.sendCommand(kEcho, payload, 2000, kEcho, reply, false, nullptr)) {
            state.SkipWithError("no reply");
            break;
        }
    }
}

void RawSerialPingPong(benchmark::State &state) {
    int fd = ::open(g_sim.SerialPath().c_str(), O_RDWR | O_NOCTTY);
    if (fd < 0) {
        state.SkipWithError("cannot open the simulator's line");
        return;
    }
    termios raw{};
    ::tcgetattr(fd, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(fd, TCSANOW, &raw);
    std::vector<unsigned char> frame = qor::EncodeSerialFrame(kEcho, Payload(), false);
    for (auto _ : state) {
        if (!WriteAll(fd, frame) || !ReadAll(fd, frame.size())) {
            state.SkipWithError("raw round trip failed");
            break;
        }
    }
    ::close(fd);
}

void SendCommandSerial(benchmark::State &state) {
    qor::SetSerialPortPath(kSerialPort, g_sim.SerialPath());
    QorDeviceComm comm;
    comm.connect(kSerialPort, 115200, 8, 0, 0, 0);
    std::vector<unsigned char> payload = Payload(), reply;
    for (auto _ : state) {
        if (!comm.sendCommand(kEcho, payload, 2000, kEcho, reply, false, nullptr)) {
            state.SkipWithError("no reply");
            break;
        }
    }
}

BENCHMARK(RawTcpPingPong)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(SendCommandTcp)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(RawSerialPingPong)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(SendCommandSerial)->UseRealTime()->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (!g_sim.Start(kSimulator, {"--tcp", "0", "--serial", "--heartbeat", "0", "--quiet"})) {
        std::fprintf(stderr, "bench: %s\n", g_sim.error.c_str());
        return 1;
    }
    bench::BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    g_sim.Stop();

    // Microseconds per round trip, wall time: the round trips wait on the device.
    auto t = [&](const char *name) { return times.Wall(name) * 1e6; };
    auto have = [&](const char *name) { return t(name) > 0; };
    if (have("RawTcpPingPong") && have("SendCommandTcp"))
        std::printf("TCP: sendCommand %.1f us, raw ping-pong %.1f us, ratio %.2f (goal <= 3)\n",
                    t("SendCommandTcp"), t("RawTcpPingPong"), t("SendCommandTcp") / t("RawTcpPingPong"));
    if (have("RawSerialPingPong") && have("SendCommandSerial"))
        std::printf("serial: sendCommand %.1f us, raw ping-pong %.1f us, ratio %.2f; "
                    "budget 12000 us (10 ms write pacing + 2 ms), ratio to budget %.2f (goal <= 1)\n",
                    t("SendCommandSerial"), t("RawSerialPingPong"),
                    t("SendCommandSerial") / t("RawSerialPingPong"), t("SendCommandSerial") / 12000.0);
    return 0;
}
