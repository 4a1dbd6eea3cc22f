#include "Instrument.h"

#include <algorithm>
#include <cstdio>

namespace qorsim {
namespace {

constexpr unsigned char kHeartbeatReply = 0x0F;
constexpr unsigned char kHeartbeatReplyPayload[] = {1, 0, 0, 0};
constexpr unsigned kDefaultSlowDelayMs = 200;

std::vector<unsigned char> ErrorPayload(unsigned char command, const char *text) {
    std::string bytes(1, static_cast<char>(command));
    bytes += text;
    return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

void PutU32(std::vector<unsigned char> &out, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) out.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

struct CommandEntry {
    unsigned char command;
    std::vector<Action> (*handle)(LinkState &, const Counters &, unsigned char,
                                  const std::vector<unsigned char> &);
};

std::vector<Action> Echo(LinkState &, const Counters &, unsigned char command,
                         const std::vector<unsigned char> &payload) {
    return {Action::Send(command, payload)};
}

std::vector<Action> Status(LinkState &, const Counters &counters, unsigned char command,
                           const std::vector<unsigned char> &) {
    std::vector<unsigned char> payload;
    PutU32(payload, counters.frames);
    PutU32(payload, counters.heartbeatReplies);
    PutU32(payload, counters.badFrames);
    return {Action::Send(command, payload)};
}

std::vector<Action> Slow(LinkState &, const Counters &, unsigned char command,
                         const std::vector<unsigned char> &payload) {
    unsigned delay = payload.size() >= 2 ? payload[0] | (payload[1] << 8) : kDefaultSlowDelayMs;
    return {Action::Do(Action::Heartbeat), Action::Send(command, payload, delay)};
}

std::vector<Action> Fail(LinkState &, const Counters &, unsigned char command,
                         const std::vector<unsigned char> &) {
    return {Action::Send(kErrorReply, ErrorPayload(command, "simulated failure"))};
}

std::vector<Action> Flaky(LinkState &link, const Counters &, unsigned char command,
                          const std::vector<unsigned char> &payload) {
    if (!link.flakyAnswered) {
        link.flakyAnswered = true;
        return {Action::Send(kErrorReply, ErrorPayload(command, "not ready, try again"))};
    }
    return {Action::Send(command, payload)};
}

std::vector<Action> Stall(LinkState &, const Counters &, unsigned char command,
                          const std::vector<unsigned char> &) {
    return {Action::Do(Action::Stall, command)};
}

std::vector<Action> HangUp(LinkState &, const Counters &, unsigned char,
                           const std::vector<unsigned char> &) {
    return {Action::Do(Action::HangUp)};
}

std::vector<Action> HeartbeatNow(LinkState &link, const Counters &, unsigned char,
                                 const std::vector<unsigned char> &) {
    ++link.heartbeatRepliesAwaited;
    return {Action::Do(Action::Heartbeat)};
}

const CommandEntry kCommands[] = {
    {kEcho, Echo},   {kStatus, Status}, {kSlow, Slow},     {kFail, Fail},
    {kFlaky, Flaky}, {kStall, Stall},   {kHangUp, HangUp}, {kHeartbeatNow, HeartbeatNow},
};

}  // namespace

const char kCommandHelp[] =
    "commands (driver side; 0x05 is never a command, 0x0E/0x0F are the heartbeat):\n"
    "  0x01 echo       replies 0x01 with the same payload\n"
    "  0x02 status     replies 0x02 with three uint32 LE: good frames received,\n"
    "                  heartbeat replies received, bad frames (checksum, garbage,\n"
    "                  malformed heartbeat replies)\n"
    "  0x03 slow       sends a heartbeat request at once, then replies 0x03 with the\n"
    "                  payload after the delay it names (uint16 LE ms; default 200)\n"
    "  0x04 fail       replies 0x7F: the command, then \"simulated failure\"\n"
    "  0x06 flaky      the first time on a link replies 0x7F (the command, then\n"
    "                  \"not ready, try again\"); afterwards like echo\n"
    "  0x07 stall      sends the start of a 0x07 reply frame and never the rest\n"
    "  0x08 hang-up    closes the TCP connection without a reply\n"
    "  0x09 heartbeat  sends a heartbeat request now and replies 0x09 (uint32 LE:\n"
    "                  heartbeat replies so far) once the host has answered it\n"
    "  other           replies 0x7F: the command, then \"unknown command\"\n"
    "heartbeat: the simulator sends 0x0E (empty payload) every --heartbeat ms and\n"
    "expects 0x0F with 01 00 00 00 back; it counts good and malformed replies.\n";

std::vector<Action> Instrument::Handle(LinkState &link, unsigned char command,
                                       const std::vector<unsigned char> &payload) {
    ++counters.frames;
    if (command == kHeartbeatReply) {
        bool wellFormed = payload.size() == 4 &&
                          std::equal(payload.begin(), payload.end(), kHeartbeatReplyPayload);
        if (!wellFormed) {
            ++counters.badFrames;
            return {};
        }
        ++counters.heartbeatReplies;
        if (link.heartbeatRepliesAwaited == 0) return {};
        --link.heartbeatRepliesAwaited;
        std::vector<unsigned char> count;
        PutU32(count, counters.heartbeatReplies);
        return {Action::Send(kHeartbeatNow, count)};
    }
    for (const CommandEntry &entry : kCommands)
        if (entry.command == command) return entry.handle(link, counters, command, payload);
    return {Action::Send(kErrorReply, ErrorPayload(command, "unknown command"))};
}

std::string DescribeFrame(unsigned char command, const std::vector<unsigned char> &payload) {
    char head[48];
    std::snprintf(head, sizeof head, "cmd=0x%02X len=%zu", command, payload.size());
    std::string text = head;
    std::size_t shown = std::min<std::size_t>(payload.size(), 32);
    for (std::size_t i = 0; i < shown; ++i) {
        char byte[4];
        std::snprintf(byte, sizeof byte, " %02X", payload[i]);
        text += byte;
    }
    if (shown < payload.size()) text += " ...";
    return text;
}

}  // namespace qorsim
