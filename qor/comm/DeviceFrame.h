// The instrument wire formats: the Ethernet frame and the short and long
// serial frames, with the CRC-16 the serial frames carry, and the decoding
// helpers shared by the links, the simulator and the fuzz targets.
//
// Ethernet frame:    command, payload length (16-bit LE), payload.
// Short serial frame: 0x11, command, low 8 bits of the length, payload,
//                    CRC high byte, CRC low byte.
// Long serial frame:  0x11, 0x05, 0x00, length + 3 (16-bit LE), command,
//                    length (16-bit LE), payload, CRC high byte, CRC low byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qor {

// Start byte of every serial frame, and the byte at offset 1 that marks a
// long one (so command 0x05 can never travel in a short frame).
constexpr unsigned char kSerialStartByte = 0x11;
constexpr unsigned char kLongFrameMarker = 0x05;
// Heartbeat request from a device, and the host's answer.
constexpr unsigned char kHeartbeatRequest = 0x0E;
constexpr unsigned char kHeartbeatReply = 0x0F;

// Header and trailer sizes of the three formats.
constexpr std::size_t kEthernetHeaderSize = 3;
constexpr std::size_t kShortFrameOverhead = 5;  // 3 header + 2 checksum
constexpr std::size_t kLongFrameOverhead = 10;  // 8 header + 2 checksum
// The serial reader first takes this many bytes, then sizes the rest.
constexpr std::size_t kSerialProbeSize = 5;

// CRC-16 with polynomial 0x1021, initial value 0, MSB first, no reflection,
// no final XOR (CRC-16/XMODEM). The byte count runs through a signed 16-bit
// counter as devices expect: more than 32,768 bytes give 0 without looking.
unsigned short Crc16Xmodem(const unsigned char *data, std::size_t length);

// Plain CRC-16/XMODEM of any length, without that counter rule.
unsigned short Crc16XmodemUnbounded(const unsigned char *data, std::size_t length);

}  // namespace qor

// One Ethernet frame, built and owning its bytes. The length is cut to 16 bits
// in the header and in the copy alike.
class EthernetFrame {
public:
    EthernetFrame(unsigned char command, const unsigned char *data, unsigned int length);

    unsigned char command;
    std::vector<unsigned char> bytes;
};

// One serial frame, built and owning its bytes. `checksum` is the CRC with its
// bytes swapped, so it equals a little-endian read of the two wire bytes.
// A short frame puts only the low 8 bits of the length in its header but
// still carries the whole payload: use long frames beyond 255 bytes.
class SerialFrame {
public:
    SerialFrame(unsigned char command, const unsigned char *data, unsigned int length,
                bool longFrame);

    unsigned char command;
    std::vector<unsigned char> bytes;
    unsigned short checksum;
};

namespace qor {

// --- Ethernet decoding -------------------------------------------------------

// Gathers one Ethernet frame from a byte stream: the 3 header bytes, then the
// payload they announce. Feed it what arrives; it never takes more than the
// frame needs, so the rest of the stream stays for the next frame.
class EthernetFrameAssembler {
public:
    // Bytes still needed for the part being read (header or payload).
    std::size_t Wanted() const;
    // Takes up to Wanted() bytes from `data`; returns how many it took.
    std::size_t Feed(const unsigned char *data, std::size_t size);
    // True once the header has been read.
    bool HeaderComplete() const { return headerHave_ == kEthernetHeaderSize; }
    // True once the whole frame has been read.
    bool Complete() const { return HeaderComplete() && payloadHave_ == length_; }
    unsigned char Command() const { return header_[0]; }
    unsigned short Length() const { return length_; }
    const std::vector<unsigned char> &Payload() const { return payload_; }
    std::vector<unsigned char> TakePayload() { return std::move(payload_); }
    // Writable space for the next Wanted() bytes, then Commit what arrived
    // there: lets a reader receive straight into the frame.
    unsigned char *Space();
    void Commit(std::size_t count);
    void Reset();

private:
    unsigned char header_[kEthernetHeaderSize] = {0, 0, 0};
    std::size_t headerHave_ = 0;
    unsigned short length_ = 0;
    std::vector<unsigned char> payload_;  // sized to the length once the header is in
    std::size_t payloadHave_ = 0;
};

// --- Serial decoding ---------------------------------------------------------

// Bytes still to come after the first five of a serial frame, computed the way
// devices' readers do: for a long frame the signed byte 4 shifted left by 8,
// or-ed with byte 3, plus 2 (so a length with its top bit set is negative and
// asks a reader for an enormous count); for a short frame byte 2.
long SerialFrameRemainder(const unsigned char *first5);

// A serial frame taken apart the way the serial reader checks it.
struct DecodedSerialFrame {
    unsigned char command = 0;
    bool longFrame = false;
    std::vector<unsigned char> payload;
    unsigned short wireChecksum = 0;   // the last two bytes, little-endian
    unsigned short expectedChecksum = 0;  // of a frame rebuilt from command and payload
    bool checksumOk = false;
};

// Decodes the whole received frame `bytes` (at least 5 bytes): command and
// payload from their offsets, the last two bytes as the checksum, compared
// against a frame rebuilt from command and payload. A frame too short for the
// length its size implies is reported with checksumOk false. Returns false
// only when `size` is below 5.
bool DecodeSerialFrame(const unsigned char *bytes, std::size_t size, DecodedSerialFrame &out);

// What a buffer that starts a serial stream holds.
enum class SerialScan {
    NeedMore,   // fewer bytes than the frame needs (or than 5)
    Frame,      // a whole frame of `frameSize` bytes is at the front
    NotAFrame,  // the first byte is not 0x11, or the header announces a negative size
};

// Looks at the front of `data`: is a whole serial frame there? Sets `frameSize`
// for Frame. For a simulator or any reader that wants frames from a buffer.
SerialScan ScanSerialFrame(const unsigned char *data, std::size_t size, std::size_t &frameSize);

// A frame's bytes, ready for the wire.
std::vector<unsigned char> EncodeSerialFrame(unsigned char command,
                                             const std::vector<unsigned char> &payload,
                                             bool longFrame);
std::vector<unsigned char> EncodeEthernetFrame(unsigned char command,
                                               const std::vector<unsigned char> &payload);

}  // namespace qor
