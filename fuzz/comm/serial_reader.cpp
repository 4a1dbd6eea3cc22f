// Feeds arbitrary bytes to the serial frame reader, as they would come off a
// disturbed line: the five-byte resynchronisation, the length arithmetic
// (negative and enormous counts included) and the checksum check.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qor/comm/DeviceFrame.h"
#include "qor/comm/QorSerialConnection.h"

namespace {

// The line as a buffer: everything "arrives" at once, reads never wait.
class BufferedLine : public qor::SerialByteSource {
public:
    BufferedLine(const std::uint8_t *data, std::size_t size) : data(data), size(size) {}
    unsigned long Waiting() override { return size - at; }
    std::string Read(unsigned long count, unsigned long, unsigned long &received) override {
        std::size_t n = count < size - at ? count : size - at;
        std::string got(reinterpret_cast<const char *>(data + at), n);
        at += n;
        received = n;
        return got;
    }
    std::size_t Position() const { return at; }

private:
    const std::uint8_t *data;
    std::size_t size;
    std::size_t at = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    BufferedLine line(data, size);
    while (line.Waiting() >= qor::kSerialProbeSize) {
        std::size_t before = line.Position();
        qor::SerialReadResult result = qor::ReadSerialMessage(line);
        // Every pass with five bytes waiting consumes at least those five.
        if (line.Position() < before + qor::kSerialProbeSize) std::abort();
        if (result.kind != qor::SerialReadResult::Message) continue;
        // A message the reader accepts survives being sent again as it came.
        std::vector<unsigned char> again =
            qor::EncodeSerialFrame(result.command, result.payload, result.longFrame);
        BufferedLine echo(again.data(), again.size());
        qor::SerialReadResult reread = qor::ReadSerialMessage(echo);
        if (result.payload.size() <= (result.longFrame ? 0xFFFCu : 0xFFu) &&
            !(result.command == qor::kLongFrameMarker && !result.longFrame) &&
            (reread.kind != qor::SerialReadResult::Message || reread.command != result.command ||
             reread.payload != result.payload || reread.longFrame != result.longFrame))
            std::abort();
    }
    return 0;
}
