// qor-demo: the library's main job on defaults built in. It starts the
// instrument simulator on loopback, connects a QorDeviceComm, and runs a
// device operation as a non-blocking state-machine task whose states each
// send a command and wait for the reply. One step fails once (the instrument
// is "not ready") and is retried, as an operator would decide. Each step and
// its timing is reported; the simulator is stopped at the end.
//
//   qor-demo [--sim PATH] [--serial]
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "DemoTask.h"
#include "qor/comm/CSuperSocket.h"
#include "qor/comm/SerialPorts.h"
#include "qor/platform/Waitable.h"
#include "tools/sim/SimProcess.h"

namespace qordemo {
namespace {

const char kHelp[] =
    "usage: qor-demo [--sim PATH] [--serial]\n"
    "\n"
    "Runs a device operation against the simulated instrument qor-sim: starts it on\n"
    "loopback, connects, runs a non-blocking state-machine task of six steps (one\n"
    "fails once and is retried), reports each step with its timing, and stops the\n"
    "simulator. Exit status 0 when the whole operation succeeded.\n"
    "\n"
    "  --sim PATH   the simulator to run (default: qor-sim beside this program)\n"
    "  --serial     talk over a pseudo-terminal with serial frames instead of TCP\n";

constexpr unsigned kDemoSerialPort = 1;
constexpr int kMaxRetries = 3;
constexpr DWORD kStepLimitMs = 15000;

std::string ProgramFolder() {
    char path[4096];
    ssize_t n = ::readlink("/proc/self/exe", path, sizeof path - 1);
    if (n <= 0) return ".";
    std::string self(path, static_cast<std::size_t>(n));
    return self.substr(0, self.rfind('/'));
}

// Hears the machine on its pool thread and hands what matters to main.
class Listener : public CStateMachineListener {
public:
    Listener()
        : finished(CreateEvent(nullptr, FALSE, FALSE, nullptr)),
          failed(CreateEvent(nullptr, FALSE, FALSE, nullptr)) {}
    ~Listener() {
        CloseHandle(finished);
        CloseHandle(failed);
    }
    void OnTaskCompleted() override {
        completed = true;
        SetEvent(finished);
    }
    void OnTaskAborted() override { SetEvent(finished); }
    void OnTaskMessage(std::string text, long value) override {
        std::printf("  machine: %s (%ld)\n", text.c_str(), value);
    }
    void OnTaskError(long, const std::string &) override { SetEvent(failed); }

    HANDLE finished;
    HANDLE failed;
    bool completed = false;  // written before `finished` is set, read after
};

ULONGLONG Since(ULONGLONG start) { return GetTickCount64() - start; }

int Run(const std::string &simulator, bool serial) {
    const ULONGLONG start = GetTickCount64();
    std::printf("qor-demo: a device operation on the simulated instrument\n");

    qorsim::SimProcess sim;
    std::vector<std::string> args{"--heartbeat", "100", "--quiet"};
    if (serial)
        args.push_back("--serial");
    else
        args.insert(args.end(), {"--tcp", "0"});
    if (!sim.Start(simulator, args)) {
        std::fprintf(stderr, "qor-demo: %s\n", sim.error.c_str());
        return 1;
    }
    std::printf("[1] simulator started: %s (%llu ms)\n", sim.ReadyLine().c_str(),
                static_cast<unsigned long long>(Since(start)));

    bool ok = false;
    {
        QorDeviceComm comm;
        ULONGLONG connecting = GetTickCount64();
        try {
            if (serial) {
                qor::SetSerialPortPath(kDemoSerialPort, sim.SerialPath());
                comm.connect(kDemoSerialPort, 115200, 8, 0, 0, 0);
            } else {
                comm.connect(sim.TcpHost(), sim.TcpPort());
            }
        } catch (const QorDeviceCommException &e) {
            std::fprintf(stderr, "qor-demo: %s\n", e.message.c_str());
            return 1;
        }
        std::printf("[2] connected over %s (%llu ms)\n", serial ? ("serial line " + sim.SerialPath()).c_str() : "TCP",
                    static_cast<unsigned long long>(Since(connecting)));

        std::printf("[3] running the task on the state machine's pool thread\n");
        Listener listener;
        {
            DemoMachine machine;
            machine.SetListener(&listener);
            auto *task = new DemoTask(comm);
            task->SetOperationName("demo operation");
            ULONGLONG running = GetTickCount64();
            machine.LaunchTask(task, false, true);
            int retries = 0;
            for (;;) {
                HANDLE events[] = {listener.finished, listener.failed};
                DWORD woke = WaitForMultipleObjects(2, events, FALSE, kStepLimitMs);
                if (woke == WAIT_OBJECT_0) break;
                if (woke == WAIT_OBJECT_0 + 1 && retries < kMaxRetries) {
                    ++retries;
                    std::printf("  operator: retry (%d)\n", retries);
                    machine.Retry();
                    continue;
                }
                std::printf("  operator: abort\n");
                machine.Abort();
                WaitForSingleObject(listener.finished, kStepLimitMs);
                break;
            }
            ok = listener.completed;
            std::printf("[4] task %s after %llu ms, %d retr%s\n", ok ? "completed" : "FAILED",
                        static_cast<unsigned long long>(Since(running)), retries, retries == 1 ? "y" : "ies");
        }
        comm.disconnect();
        if (serial) qor::SetSerialPortPath(kDemoSerialPort, "");
    }
    int simStatus = sim.Stop();
    std::printf("[5] simulator stopped (exit status %d); total %llu ms\n", simStatus,
                static_cast<unsigned long long>(Since(start)));
    return ok && simStatus == 0 ? 0 : 1;
}

}  // namespace
}  // namespace qordemo

int main(int argc, char **argv) {
    std::string simulator;
    bool serial = false;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg == "-h" || arg == "--help") {
            std::fputs(qordemo::kHelp, stdout);
            return 0;
        } else if (arg == "--sim" && i + 1 < argc) {
            simulator = argv[++i];
        } else if (arg == "--serial") {
            serial = true;
        } else {
            std::fprintf(stderr, "qor-demo: unknown option %s (see qor-demo --help)\n", arg.c_str());
            return 2;
        }
    }
    if (simulator.empty()) simulator = qordemo::ProgramFolder() + "/qor-sim";
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    return qordemo::Run(simulator, serial);
}
