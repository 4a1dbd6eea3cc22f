// qor device: talk to an instrument from a shell. Sends one frame over TCP or
// a serial line and prints the reply in hex; lists serial ports.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "Command.h"
#include "qor/comm/CSerial.h"
#include "qor/comm/CSuperSocket.h"
#include "qor/comm/QorDeviceComm.h"
#include "qor/comm/SerialPorts.h"

namespace qor::cli {
namespace {

const char kDeviceHelp[] =
    "usage: qor device send TARGET COMMAND [PAYLOAD-HEX] [--wait REPLY[,REPLY...]]\n"
    "                       [--timeout MS] [--no-wait] [--long] [--baud N]\n"
    "       qor device ports\n"
    "\n"
    "send    sends one frame to an instrument and prints the reply:\n"
    "          reply 0x01 (3 bytes): 0a 0b 0c\n"
    "        TARGET   HOST:PORT for TCP (Ethernet frames), or a serial port by\n"
    "                 number (1 is /dev/ttyS0) or by device path (serial frames)\n"
    "        COMMAND  the command byte, decimal or 0x-hex\n"
    "        PAYLOAD-HEX  the payload as hex digits; blanks and colons between\n"
    "                 bytes are allowed (\"0a0b\", \"0a:0b\", \"0a 0b\")\n"
    "        --wait REPLY   the reply command(s) to wait for (default: COMMAND)\n"
    "        --timeout MS   how long to wait for the reply (default 1000)\n"
    "        --no-wait      send and return at once\n"
    "        --long         use a long serial frame (payloads over 255 bytes)\n"
    "        --baud N       serial line speed (default 9600; 8 data bits, no\n"
    "                       parity, one stop bit, no flow control)\n"
    "ports   lists the serial ports of this machine as \"COM n  path\".\n"
    "\n"
    "Exit status: 0 when the reply came, 1 when the link failed or no reply\n"
    "came in time (the reason is printed), 2 for a usage error.\n";

// A path target is opened through this port number.
constexpr unsigned kPathPort = 32767;

bool ParseByte(const std::string &text, unsigned char &value) {
    if (text.empty()) return false;
    char *end = nullptr;
    unsigned long parsed = std::strtoul(text.c_str(), &end, 0);
    if (*end || parsed > 0xFF) return false;
    value = static_cast<unsigned char>(parsed);
    return true;
}

bool ParseNumber(const std::string &text, unsigned long max, unsigned long &value) {
    if (text.empty()) return false;
    char *end = nullptr;
    value = std::strtoul(text.c_str(), &end, 10);
    return !*end && value <= max;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool ParseHex(const std::string &text, std::vector<unsigned char> &bytes) {
    std::string digits;
    for (char c : text) {
        if (c == ' ' || c == ':' || c == '-') continue;
        if (HexDigit(c) < 0) return false;
        digits += c;
    }
    if (digits.size() % 2) return false;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        bytes.push_back(static_cast<unsigned char>(HexDigit(digits[i]) * 16 + HexDigit(digits[i + 1])));
    return true;
}

struct SendRequest {
    std::string target;
    unsigned char command = 0;
    std::vector<unsigned char> payload;
    std::vector<unsigned char> replies;
    unsigned long timeoutMs = 1000;
    bool wait = true;
    bool longFrame = false;
    unsigned long baud = 9600;
};

int ParseSend(const std::vector<std::string> &args, SendRequest &request) {
    std::vector<std::string> positional;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string &arg = args[i];
        bool hasValue = i + 1 < args.size();
        if (arg == "--wait") {
            if (!hasValue) return UsageError("device send: --wait needs a reply command");
            std::string list = args[++i];
            std::size_t start = 0;
            while (start <= list.size()) {
                std::size_t comma = list.find(',', start);
                std::string item = list.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
                unsigned char reply;
                if (!ParseByte(item, reply)) return UsageError("device send: not a command byte: " + item);
                request.replies.push_back(reply);
                if (comma == std::string::npos) break;
                start = comma + 1;
            }
        } else if (arg == "--timeout") {
            if (!hasValue || !ParseNumber(args[++i], 0xFFFFFFFFul, request.timeoutMs))
                return UsageError("device send: --timeout needs a number of milliseconds");
        } else if (arg == "--baud") {
            if (!hasValue || !ParseNumber(args[++i], 4000000, request.baud))
                return UsageError("device send: --baud needs a line speed");
        } else if (arg == "--no-wait") {
            request.wait = false;
        } else if (arg == "--long") {
            request.longFrame = true;
        } else if (arg.size() > 1 && arg[0] == '-' && arg.substr(0, 2) == "--") {
            return UsageError("device send: unknown option " + arg);
        } else {
            positional.push_back(arg);
        }
    }
    if (positional.size() < 2 || positional.size() > 3)
        return UsageError("device send: expected TARGET COMMAND [PAYLOAD-HEX] (see qor device --help)");
    request.target = positional[0];
    if (!ParseByte(positional[1], request.command))
        return UsageError("device send: not a command byte: " + positional[1]);
    if (positional.size() == 3 && !ParseHex(positional[2], request.payload))
        return UsageError("device send: the payload is not hex bytes: " + positional[2]);
    if (request.replies.empty()) request.replies.push_back(request.command);
    return 0;
}

// Connects `comm` as the target names it; returns a usage error code or 0.
int Connect(QorDeviceComm &comm, const SendRequest &request) {
    const std::string &target = request.target;
    bool allDigits = target.find_first_not_of("0123456789") == std::string::npos;
    std::size_t colon = target.rfind(':');
    if (target[0] != '/' && !allDigits && colon != std::string::npos) {
        unsigned long port = 0;
        if (!ParseNumber(target.substr(colon + 1), 65535, port) || colon == 0)
            return UsageError("device send: not HOST:PORT: " + target);
        comm.connect(target.substr(0, colon), static_cast<unsigned>(port));
        return 0;
    }
    unsigned long port = 0;
    if (allDigits) {
        if (!ParseNumber(target, 32766, port) || port == 0)
            return UsageError("device send: not a serial port number: " + target);
    } else {
        port = kPathPort;
        qor::SetSerialPortPath(kPathPort, target);
    }
    comm.connect(static_cast<unsigned>(port), static_cast<unsigned>(request.baud), 8, 0, 0, 0);
    return 0;
}

void PrintReply(unsigned char command, const std::vector<unsigned char> &reply) {
    std::printf("reply 0x%02X (%zu bytes):", command, reply.size());
    for (unsigned char byte : reply) std::printf(" %02x", byte);
    std::printf("\n");
}

int Send(const std::vector<std::string> &args) {
    SendRequest request;
    if (int usage = ParseSend(args, request)) return usage;
    QorDeviceComm comm;
    try {
        if (int usage = Connect(comm, request)) return usage;
        if (!request.wait) {
            comm.sendCommand(request.command, request.payload, request.longFrame, nullptr);
            return 0;
        }
        std::vector<unsigned char> replies = request.replies;
        std::vector<unsigned char> reply;
        bool answered = comm.sendCommand(request.command, request.payload,
                                         static_cast<unsigned>(request.timeoutMs), replies, reply,
                                         request.longFrame, nullptr);
        if (!answered) {
            std::fprintf(stderr, "qor device: no reply within %lu ms\n", request.timeoutMs);
            return 1;
        }
        PrintReply(replies.size() == 1 ? replies[0] : request.replies[0], reply);
        return 0;
    } catch (const QorDeviceCommException &e) {
        std::fprintf(stderr, "qor device: %s\n", e.message.c_str());
    } catch (const CSuperSocketException &e) {
        std::fprintf(stderr, "qor device: %s%s\n", e.message.c_str(), e.errorText.c_str());
    }
    return 1;
}

int Ports() {
    std::vector<int> ports;
    CSerial::EnumerateSerialPorts(ports);
    for (int port : ports)
        std::printf("COM %d  %s\n", port, qor::SerialPortPath(static_cast<unsigned>(port)).c_str());
    if (ports.empty()) std::printf("no serial ports\n");
    return 0;
}

int RunDevice(const std::vector<std::string> &args) {
    if (args.empty()) return UsageError("device: expected send or ports (see qor device --help)");
    if (WantsHelp(args)) {
        std::fputs(kDeviceHelp, stdout);
        return 0;
    }
    if (args[0] == "send") return Send(args);
    if (args[0] == "ports") return Ports();
    return UsageError("device: unknown sub-verb '" + args[0] + "' (see qor device --help)");
}

QorCommand deviceVerb({"device", "send a command to an instrument over TCP or a serial line",
                       kDeviceHelp, RunDevice});

}  // namespace
}  // namespace qor::cli
