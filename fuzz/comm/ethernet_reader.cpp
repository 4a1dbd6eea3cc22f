// Arbitrary bytes into the Ethernet frame reader, in chunks whose sizes the
// input chooses too, the way the link's reader takes them off a socket: each
// frame must come out whole, never reading past what it was given, and the
// bytes after a frame must stay for the next one.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "qor/comm/DeviceFrame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) return 0;
    // The first byte picks the chunking: how many bytes each "receive" gives.
    const std::size_t chunk = (data[0] % 17) + 1;
    const unsigned char *stream = data + 1;
    const std::size_t length = size - 1;
    std::size_t offset = 0;
    qor::EthernetFrameAssembler frame;
    while (offset < length) {
        const std::size_t available = std::min(chunk, length - offset);
        // As the link does: receive straight into the frame's space.
        const std::size_t wanted = std::min(frame.Wanted(), available);
        if (wanted != 0) std::memcpy(frame.Space(), stream + offset, wanted);
        frame.Commit(wanted);
        offset += wanted;
        if (frame.Complete()) {
            const std::size_t frameStart = offset - qor::kEthernetHeaderSize - frame.Length();
            // The frame is exactly the bytes the header announced.
            if (frame.Command() != stream[frameStart]) std::abort();
            if (frame.Payload().size() != frame.Length()) std::abort();
            if (frame.Length() != 0 &&
                std::memcmp(frame.Payload().data(), stream + frameStart + qor::kEthernetHeaderSize,
                            frame.Length()) != 0)
                std::abort();
            // And encoding it again gives the same bytes.
            const std::vector<unsigned char> again =
                qor::EncodeEthernetFrame(frame.Command(), frame.Payload());
            if (std::memcmp(again.data(), stream + frameStart, again.size()) != 0) std::abort();
            frame.Reset();
        }
    }
    // Feed gives the same result as Space/Commit.
    qor::EthernetFrameAssembler fed;
    std::size_t taken = fed.Feed(stream, length);
    if (taken > length) std::abort();
    if (!fed.Complete() && taken != length) std::abort();
    // The serial decoders on the same bytes: no read past the end.
    std::size_t frameSize = 0;
    if (qor::ScanSerialFrame(stream, length, frameSize) == qor::SerialScan::Frame) {
        if (frameSize > length) std::abort();
        qor::DecodedSerialFrame decoded;
        qor::DecodeSerialFrame(stream, frameSize, decoded);
    }
    qor::DecodedSerialFrame any;
    qor::DecodeSerialFrame(stream, length, any);
    return 0;
}
