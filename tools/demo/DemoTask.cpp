#include "DemoTask.h"

#include <cstdio>
#include <string>

namespace qordemo {
namespace {

constexpr unsigned char kEcho = 0x01;
constexpr unsigned char kStatus = 0x02;
constexpr unsigned char kSlow = 0x03;
constexpr unsigned char kFlaky = 0x06;
constexpr unsigned char kHeartbeatNow = 0x09;
constexpr unsigned char kErrorReply = 0x7F;

unsigned U32(const std::vector<unsigned char> &bytes, std::size_t at) {
    if (bytes.size() < at + 4) return 0;
    return bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 | static_cast<unsigned>(bytes[at + 3]) << 24;
}

std::vector<unsigned char> Bytes(const std::string &text) {
    return std::vector<unsigned char>(text.begin(), text.end());
}

}  // namespace

bool DemoTask::Exchange(const char *step, unsigned char command, const std::vector<unsigned char> &payload,
                        std::vector<unsigned char> &reply, unsigned timeoutMs) {
    std::vector<unsigned char> answers{command, kErrorReply};
    ULONGLONG sent = GetTickCount64();
    bool answered = comm.sendCommand(command, payload, timeoutMs, answers, reply, false, nullptr);
    ULONGLONG took = GetTickCount64() - sent;
    if (!answered) {
        lastError = std::string(step) + ": no reply within " + std::to_string(timeoutMs) + " ms";
        return false;
    }
    if (answers[0] == kErrorReply) {
        lastError = std::string(step) + ": instrument says \"" +
                    std::string(reply.begin() + (reply.empty() ? 0 : 1), reply.end()) + "\"";
        std::printf("  %-22s command 0x%02X -> error reply after %llu ms\n", step, command,
                    static_cast<unsigned long long>(took));
        return false;
    }
    std::printf("  %-22s command 0x%02X -> reply 0x%02X, %zu bytes, %llu ms\n", step, command, answers[0],
                reply.size(), static_cast<unsigned long long>(took));
    return true;
}

bool DemoTask::FirstState() {
    std::vector<unsigned char> reply;
    const std::vector<unsigned char> hello = Bytes("QOR-DEMO");
    if (!Exchange("identify (echo)", kEcho, hello, reply)) return false;
    if (reply != hello) {
        lastError = "identify: the echo came back changed";
        return false;
    }
    SetNextState(&DemoTask::ReadStatus);
    return true;
}

bool DemoTask::ReadStatus() {
    std::vector<unsigned char> reply;
    if (!Exchange("read status", kStatus, {}, reply)) return false;
    std::printf("  %-22s instrument has seen %u frames\n", "", U32(reply, 0));
    SetNextState(&DemoTask::PrimeInstrument);
    return true;
}

bool DemoTask::PrimeInstrument() {
    std::vector<unsigned char> reply;
    if (!Exchange("prime (flaky)", kFlaky, {1}, reply)) return false;
    SetNextState(&DemoTask::RunSlowMeasurement);
    return true;
}

bool DemoTask::RunSlowMeasurement() {
    std::vector<unsigned char> reply;
    // 150 ms of work; the instrument checks on us with a heartbeat meanwhile.
    if (!Exchange("measure (slow)", kSlow, {150, 0}, reply)) return false;
    SetNextState(&DemoTask::CheckHeartbeat);
    return true;
}

bool DemoTask::CheckHeartbeat() {
    std::vector<unsigned char> reply;
    if (!Exchange("heartbeat round", kHeartbeatNow, {}, reply)) return false;
    SetNextState(&DemoTask::ReadFinalStatus);
    return true;
}

bool DemoTask::ReadFinalStatus() {
    std::vector<unsigned char> reply;
    if (!Exchange("final status", kStatus, {}, reply)) return false;
    std::printf("  %-22s frames %u, heartbeats answered %u, damaged %u\n", "", U32(reply, 0), U32(reply, 4),
                U32(reply, 8));
    if (U32(reply, 4) < 2 || U32(reply, 8) != 0) {
        lastError = "final status: the instrument missed heartbeat replies or saw damaged frames";
        return false;
    }
    currentState = nullptr;
    return true;
}

void DemoTask::OnNonBlockingFinish() {
    std::printf("  task finished after %llu ms\n",
                static_cast<unsigned long long>(GetTickCount64() - started));
}

void DemoMachine::ReportError(const std::string &text) { std::printf("  step failed: %s\n", text.c_str()); }

void DemoMachine::OnUserAbort() { std::printf("  task aborted\n"); }

}  // namespace qordemo
