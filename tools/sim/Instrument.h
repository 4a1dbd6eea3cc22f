// The simulated instrument's behaviour, apart from how frames travel: a small
// command table, the heartbeat bookkeeping, and the counters the status
// command reports. The transports (TCP, pseudo-terminal) turn what it asks for
// into frames of their own format.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qorsim {

// Commands the instrument understands.
enum : unsigned char {
    kEcho = 0x01,       // replies with the same command and payload
    kStatus = 0x02,     // replies with the counters, 3 x uint32 LE
    kSlow = 0x03,       // heartbeat at once, reply after the delay (uint16 LE ms, default 200)
    kFail = 0x04,       // always answered with an error reply
    kFlaky = 0x06,      // error reply the first time on a link, then like echo
    kStall = 0x07,      // starts a reply frame and never finishes it
    kHangUp = 0x08,     // closes the link (TCP), without a reply
    kHeartbeatNow = 0x09,  // heartbeat at once; replies when the host has answered it
    kErrorReply = 0x7F,    // payload: the failed command, then a text
};

// One thing the transport is to do for a received frame.
struct Action {
    enum Kind {
        Reply,      // send `command` with `payload` after `delayMs` (0: at once)
        Heartbeat,  // send a heartbeat request
        Stall,      // send the first bytes of a frame of `command` and stop
        HangUp,     // close the link
    } kind;
    unsigned char command = 0;
    std::vector<unsigned char> payload;
    unsigned delayMs = 0;

    static Action Send(unsigned char command, std::vector<unsigned char> payload,
                       unsigned delayMs = 0) {
        return Action{Reply, command, std::move(payload), delayMs};
    }
    static Action Do(Kind kind, unsigned char command = 0) { return Action{kind, command, {}, 0}; }
};

// What the instrument remembers of one link.
struct LinkState {
    bool flakyAnswered = false;
    int heartbeatRepliesAwaited = 0;  // for kHeartbeatNow
};

struct Counters {
    std::uint32_t frames = 0;             // good frames received
    std::uint32_t heartbeatReplies = 0;   // well-formed 0x0F 01 00 00 00 received
    std::uint32_t badFrames = 0;          // checksum errors, garbage, malformed heartbeat replies
    std::uint32_t heartbeatsSent = 0;
};

class Instrument {
public:
    // Handles one good frame; returns what to send back.
    std::vector<Action> Handle(LinkState &link, unsigned char command,
                               const std::vector<unsigned char> &payload);
    void CountBadFrame() { ++counters.badFrames; }
    void CountHeartbeatSent() { ++counters.heartbeatsSent; }
    const Counters &Stats() const { return counters; }

private:
    Counters counters;
};

// One line for the log: "cmd=0x01 len=3 01 02 03".
std::string DescribeFrame(unsigned char command, const std::vector<unsigned char> &payload);

// The text of `qor-sim --help` that lists the commands.
extern const char kCommandHelp[];

}  // namespace qorsim
