#include "qor/comm/DeviceFrame.h"

#include <algorithm>
#include <cstring>

namespace qor {

unsigned short Crc16XmodemUnbounded(const unsigned char *data, std::size_t length) {
    unsigned int crc = 0;
    for (std::size_t i = 0; i < length; ++i) {
        crc ^= static_cast<unsigned int>(data[i]) << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000u) ? ((crc << 1) ^ 0x1021u) : (crc << 1);
    }
    return static_cast<unsigned short>(crc);
}

unsigned short Crc16Xmodem(const unsigned char *data, std::size_t length) {
    // Devices count the bytes in a signed 16-bit counter: beyond 32,768 bytes
    // their loop never runs and the frame carries 0. Both sides must agree.
    if (length > 32768) return 0;
    return Crc16XmodemUnbounded(data, length);
}

}  // namespace qor

namespace {

void PutLittle16(std::vector<unsigned char> &out, unsigned int value) {
    out.push_back(static_cast<unsigned char>(value & 0xFF));
    out.push_back(static_cast<unsigned char>((value >> 8) & 0xFF));
}

}  // namespace

EthernetFrame::EthernetFrame(unsigned char command, const unsigned char *data, unsigned int length)
    : command(command) {
    const unsigned int size = length & 0xFFFFu;
    bytes.reserve(qor::kEthernetHeaderSize + size);
    bytes.push_back(command);
    PutLittle16(bytes, size);
    if (size != 0 && data != nullptr) bytes.insert(bytes.end(), data, data + size);
}

SerialFrame::SerialFrame(unsigned char command, const unsigned char *data, unsigned int length,
                         bool longFrame)
    : command(command), checksum(0) {
    const unsigned int size = length & 0xFFFFu;
    bytes.reserve((longFrame ? qor::kLongFrameOverhead : qor::kShortFrameOverhead) + size);
    bytes.push_back(qor::kSerialStartByte);
    if (longFrame) {
        bytes.push_back(qor::kLongFrameMarker);
        bytes.push_back(0);
        PutLittle16(bytes, size + 3);
        bytes.push_back(command);
        PutLittle16(bytes, size);
    } else {
        bytes.push_back(command);
        bytes.push_back(static_cast<unsigned char>(size & 0xFF));
    }
    if (size != 0 && data != nullptr) bytes.insert(bytes.end(), data, data + size);
    const unsigned short crc = qor::Crc16Xmodem(bytes.data(), bytes.size());
    bytes.push_back(static_cast<unsigned char>(crc >> 8));
    bytes.push_back(static_cast<unsigned char>(crc & 0xFF));
    checksum = static_cast<unsigned short>((crc >> 8) | ((crc & 0xFF) << 8));
}

namespace qor {

std::size_t EthernetFrameAssembler::Wanted() const {
    if (!HeaderComplete()) return kEthernetHeaderSize - headerHave_;
    return length_ - payloadHave_;
}

unsigned char *EthernetFrameAssembler::Space() {
    if (!HeaderComplete()) return header_ + headerHave_;
    return payload_.data() + payloadHave_;
}

void EthernetFrameAssembler::Commit(std::size_t count) {
    count = std::min(count, Wanted());
    if (HeaderComplete()) {
        payloadHave_ += count;
        return;
    }
    headerHave_ += count;
    if (HeaderComplete()) {
        length_ = static_cast<unsigned short>(header_[1] | (header_[2] << 8));
        payload_.assign(length_, 0);
        payloadHave_ = 0;
    }
}

std::size_t EthernetFrameAssembler::Feed(const unsigned char *data, std::size_t size) {
    std::size_t taken = 0;
    while (taken < size && !Complete()) {
        const std::size_t n = std::min(Wanted(), size - taken);
        if (n != 0) std::memcpy(Space(), data + taken, n);
        Commit(n);
        taken += n;
    }
    return taken;
}

void EthernetFrameAssembler::Reset() {
    headerHave_ = 0;
    length_ = 0;
    payloadHave_ = 0;
    payload_.clear();
}

long SerialFrameRemainder(const unsigned char *first5) {
    if (first5[1] == kLongFrameMarker) {
        const long high = static_cast<signed char>(first5[4]);
        return (high * 256 | first5[3]) + 2;
    }
    return first5[2];
}

bool DecodeSerialFrame(const unsigned char *bytes, std::size_t size, DecodedSerialFrame &out) {
    out = DecodedSerialFrame{};
    if (size < kSerialProbeSize) return false;
    out.longFrame = bytes[1] == kLongFrameMarker;
    out.wireChecksum = static_cast<unsigned short>(bytes[size - 2] | (bytes[size - 1] << 8));
    const std::size_t overhead = out.longFrame ? kLongFrameOverhead : kShortFrameOverhead;
    const std::size_t offset = out.longFrame ? 8 : 3;
    if (size < overhead) return true;  // too short to hold what it claims: a bad frame
    out.command = out.longFrame ? bytes[5] : bytes[1];
    const std::size_t length = (size - overhead) & 0xFFFFu;
    out.payload.assign(bytes + offset, bytes + offset + length);
    const SerialFrame rebuilt(out.command, out.payload.data(),
                              static_cast<unsigned int>(length), out.longFrame);
    out.expectedChecksum = rebuilt.checksum;
    out.checksumOk = rebuilt.checksum == out.wireChecksum;
    return true;
}

SerialScan ScanSerialFrame(const unsigned char *data, std::size_t size, std::size_t &frameSize) {
    if (size == 0) return SerialScan::NeedMore;
    if (data[0] != kSerialStartByte) return SerialScan::NotAFrame;
    if (size < kSerialProbeSize) return SerialScan::NeedMore;
    const long rest = SerialFrameRemainder(data);
    if (rest < 0) return SerialScan::NotAFrame;
    const std::size_t whole = kSerialProbeSize + static_cast<std::size_t>(rest);
    if (size < whole) return SerialScan::NeedMore;
    frameSize = whole;
    return SerialScan::Frame;
}

std::vector<unsigned char> EncodeSerialFrame(unsigned char command,
                                             const std::vector<unsigned char> &payload,
                                             bool longFrame) {
    return SerialFrame(command, payload.empty() ? nullptr : payload.data(),
                       static_cast<unsigned int>(payload.size()), longFrame)
        .bytes;
}

std::vector<unsigned char> EncodeEthernetFrame(unsigned char command,
                                               const std::vector<unsigned char> &payload) {
    return EthernetFrame(command, payload.empty() ? nullptr : payload.data(),
                         static_cast<unsigned int>(payload.size()))
        .bytes;
}

}  // namespace qor
