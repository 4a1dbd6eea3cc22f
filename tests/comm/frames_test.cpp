// The wire formats, byte for byte, and the decoders the readers share.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "qor/comm/DeviceFrame.h"

namespace frames_test {

using Bytes = std::vector<unsigned char>;

Bytes Payload(std::size_t size, unsigned char seed = 0) {
    Bytes out(size);
    for (std::size_t i = 0; i < size; ++i) out[i] = static_cast<unsigned char>(seed + i * 7);
    return out;
}

TEST(Frames, Crc16XmodemCheckValues) {
    const char *check = "123456789";
    EXPECT_EQ(qor::Crc16Xmodem(reinterpret_cast<const unsigned char *>(check), 9), 0x31C3);
    EXPECT_EQ(qor::Crc16Xmodem(nullptr, 0), 0);
}

TEST(Frames, CrcCounterGivesZeroPast32768Bytes) {
    const Bytes big = Payload(40000, 3);
    EXPECT_NE(qor::Crc16Xmodem(big.data(), 32768), 0);
    EXPECT_EQ(qor::Crc16Xmodem(big.data(), 32768), qor::Crc16XmodemUnbounded(big.data(), 32768));
    EXPECT_EQ(qor::Crc16Xmodem(big.data(), 32769), 0);
    // A long frame holds 8 header bytes before its payload.
    const Bytes atLimit = Payload(32760, 1), overLimit = Payload(32761, 1);
    EXPECT_NE(SerialFrame(0x30, atLimit.data(), 32760, true).checksum, 0);
    const SerialFrame over(0x30, overLimit.data(), 32761, true);
    EXPECT_EQ(over.checksum, 0);
    EXPECT_EQ(over.bytes[over.bytes.size() - 2], 0);
    EXPECT_EQ(over.bytes.back(), 0);
}

TEST(Frames, ShortFrameExampleBytes) {
    const unsigned char payload = 0x41;
    const SerialFrame frame(0x21, &payload, 1, false);
    EXPECT_EQ(frame.bytes, (Bytes{0x11, 0x21, 0x01, 0x41, 0xB7, 0x31}));
    EXPECT_EQ(frame.command, 0x21);
    // Swapped, so that a little-endian read of the wire bytes equals it.
    EXPECT_EQ(frame.checksum, 0x31B7);
    unsigned short wire = 0;
    std::memcpy(&wire, frame.bytes.data() + 4, 2);
    EXPECT_EQ(wire, frame.checksum);
}

TEST(Frames, SizesAndHeaders) {
    const Bytes payload = Payload(300, 9);
    struct Case {
        const char *what;
        Bytes bytes;
        std::size_t size;
        Bytes header;
    } cases[] = {
        {"empty Ethernet", EthernetFrame(0x10, nullptr, 0).bytes, 3, {0x10, 0, 0}},
        {"empty short", SerialFrame(0x10, nullptr, 0, false).bytes, 5, {0x11, 0x10, 0x00}},
        {"empty long", SerialFrame(0x10, nullptr, 0, true).bytes, 10,
         {0x11, 0x05, 0x00, 0x03, 0x00, 0x10, 0x00, 0x00}},
        {"long", SerialFrame(0x42, payload.data(), 300, true).bytes, 310,
         {0x11, 0x05, 0x00, 0x2F, 0x01, 0x42, 0x2C, 0x01}},
        // A short frame keeps only the low length byte, but the whole payload.
        {"short of 300", SerialFrame(0x21, payload.data(), 300, false).bytes, 305,
         {0x11, 0x21, 0x2C}},
    };
    for (const Case &c : cases) {
        ASSERT_EQ(c.bytes.size(), c.size) << c.what;
        EXPECT_EQ(Bytes(c.bytes.begin(), c.bytes.begin() + c.header.size()), c.header) << c.what;
    }
    const Bytes &longFrame = cases[3].bytes;
    EXPECT_EQ(Bytes(longFrame.begin() + 8, longFrame.end() - 2), payload);
    const unsigned short crc = qor::Crc16Xmodem(longFrame.data(), 308);
    EXPECT_EQ(longFrame[308], crc >> 8);
    EXPECT_EQ(longFrame[309], crc & 0xFF);
}

TEST(Frames, EthernetLengthIsCutTo16Bits) {
    const Bytes payload = Payload(65536 + 2, 5);
    const EthernetFrame frame(0x33, payload.data(), 65536 + 2);
    EXPECT_EQ(frame.bytes, (Bytes{0x33, 0x02, 0x00, payload[0], payload[1]}));
    const Bytes max = Payload(65535);
    const EthernetFrame full(0x33, max.data(), 65535);
    EXPECT_EQ(full.bytes.size(), 65538u);
    EXPECT_EQ(full.bytes[1], 0xFF);
    EXPECT_EQ(full.bytes[2], 0xFF);
}

TEST(Frames, SerialRemainderFromTheFirstFiveBytes) {
    struct Case {
        Bytes first5;
        long remainder;
    } cases[] = {
        {{0x11, 0x21, 0x00, 0x00, 0x00}, 0},
        {{0x11, 0x21, 0xFF, 0x00, 0x00}, 255},
        {{0x11, 0x05, 0x00, 0x03, 0x00}, 5},        // long, empty payload
        {{0x11, 0x05, 0x00, 0x2F, 0x01}, 0x12F + 2},
        {{0x11, 0x05, 0x00, 0x00, 0x80}, -32768 + 2},  // top bit: a huge unsigned count
    };
    for (const Case &c : cases) EXPECT_EQ(qor::SerialFrameRemainder(c.first5.data()), c.remainder);
}

TEST(Frames, DecodeRoundTripAndDamage) {
    for (bool longFrame : {false, true}) {
        for (std::size_t size : {0u, 1u, 200u}) {
            const Bytes payload = Payload(size, 4);
            Bytes wire = qor::EncodeSerialFrame(0x37, payload, longFrame);
            qor::DecodedSerialFrame decoded;
            ASSERT_TRUE(qor::DecodeSerialFrame(wire.data(), wire.size(), decoded));
            EXPECT_TRUE(decoded.checksumOk);
            EXPECT_EQ(decoded.command, 0x37);
            EXPECT_EQ(decoded.longFrame, longFrame);
            EXPECT_EQ(decoded.payload, payload);
            // Damage to the command, the payload or the checksum shows.
            const std::size_t commandAt = longFrame ? 5 : 1;
            std::vector<std::size_t> spots = {commandAt, wire.size() - 1};
            if (size > 0) spots.push_back(wire.size() - 3);
            for (std::size_t at : spots) {
                Bytes damaged = wire;
                damaged[at] ^= 0x01;
                ASSERT_TRUE(qor::DecodeSerialFrame(damaged.data(), damaged.size(), decoded));
                EXPECT_FALSE(decoded.checksumOk) << "size " << size << " long " << longFrame;
            }
        }
    }
}

TEST(Frames, DecodeOfTruncatedLongFrameFailsTheCheckWithoutReadingPastTheEnd) {
    const Bytes wire = qor::EncodeSerialFrame(0x37, Payload(20), true);
    qor::DecodedSerialFrame decoded;
    EXPECT_FALSE(qor::DecodeSerialFrame(wire.data(), 4, decoded));
    for (std::size_t size = 5; size < wire.size(); ++size) {
        const Bytes cut(wire.begin(), wire.begin() + size);
        ASSERT_TRUE(qor::DecodeSerialFrame(cut.data(), cut.size(), decoded));
        EXPECT_FALSE(decoded.checksumOk) << size;
    }
}

TEST(Frames, ScanFindsWholeFrames) {
    const Bytes shortFrame = qor::EncodeSerialFrame(0x21, {0x41}, false);
    const Bytes longFrame = qor::EncodeSerialFrame(0x22, Payload(40), true);
    std::size_t size = 0;
    EXPECT_EQ(qor::ScanSerialFrame(shortFrame.data(), 0, size), qor::SerialScan::NeedMore);
    EXPECT_EQ(qor::ScanSerialFrame(shortFrame.data(), 4, size), qor::SerialScan::NeedMore);
    EXPECT_EQ(qor::ScanSerialFrame(shortFrame.data(), 5, size), qor::SerialScan::NeedMore);
    ASSERT_EQ(qor::ScanSerialFrame(shortFrame.data(), 6, size), qor::SerialScan::Frame);
    EXPECT_EQ(size, 6u);
    Bytes both = longFrame;
    both.insert(both.end(), shortFrame.begin(), shortFrame.end());
    ASSERT_EQ(qor::ScanSerialFrame(both.data(), both.size(), size), qor::SerialScan::Frame);
    EXPECT_EQ(size, longFrame.size());
    const Bytes noise = {0x12, 0x21, 0x01, 0x41, 0xB7};
    EXPECT_EQ(qor::ScanSerialFrame(noise.data(), noise.size(), size), qor::SerialScan::NotAFrame);
    const Bytes negative = {0x11, 0x05, 0x00, 0x00, 0x80};
    EXPECT_EQ(qor::ScanSerialFrame(negative.data(), negative.size(), size),
              qor::SerialScan::NotAFrame);
}

TEST(Frames, AssemblerTakesOneFrameFromAStreamInAnyChunking) {
    Bytes stream = qor::EncodeEthernetFrame(0x51, Payload(1000, 2));
    const Bytes second = qor::EncodeEthernetFrame(0x52, {});
    stream.insert(stream.end(), second.begin(), second.end());
    for (std::size_t chunk : {1u, 2u, 3u, 7u, 5000u}) {
        qor::EthernetFrameAssembler frame;
        std::size_t offset = 0;
        while (!frame.Complete()) {
            const std::size_t n = std::min(chunk, stream.size() - offset);
            offset += frame.Feed(stream.data() + offset, n);
        }
        EXPECT_EQ(offset, 1003u) << chunk;  // not a byte of the next frame
        EXPECT_EQ(frame.Command(), 0x51);
        EXPECT_EQ(frame.Payload(), Payload(1000, 2));
        frame.Reset();
        offset += frame.Feed(stream.data() + offset, stream.size() - offset);
        EXPECT_TRUE(frame.Complete());
        EXPECT_EQ(frame.Command(), 0x52);
        EXPECT_TRUE(frame.Payload().empty());
        EXPECT_EQ(offset, stream.size());
    }
}

TEST(Frames, AssemblerWithHugeLengthWaitsForAllOfIt) {
    const Bytes header = {0x60, 0xFF, 0xFF};
    qor::EthernetFrameAssembler frame;
    EXPECT_EQ(frame.Feed(header.data(), 3), 3u);
    EXPECT_TRUE(frame.HeaderComplete());
    EXPECT_EQ(frame.Length(), 65535);
    EXPECT_EQ(frame.Wanted(), 65535u);
    const Bytes body = Payload(70000);
    EXPECT_EQ(frame.Feed(body.data(), body.size()), 65535u);
    EXPECT_TRUE(frame.Complete());
}

}  // namespace frames_test
