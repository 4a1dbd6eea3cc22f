#include "qor/view3d/Png.h"

#include <zlib.h>

#include <fstream>

namespace qor {
namespace {

void PutWord(std::string &out, std::uint32_t v) {
    const char bytes[4] = {char(v >> 24), char(v >> 16), char(v >> 8), char(v)};
    out.append(bytes, 4);
}

// A chunk: length, type, data, and the CRC of type and data.
void PutChunk(std::string &out, const char *type, const std::string &data) {
    PutWord(out, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = out.size();
    out.append(type, 4);
    out += data;
    const auto *crcFrom = reinterpret_cast<const Bytef *>(out.data() + start);
    PutWord(out, static_cast<std::uint32_t>(crc32(crc32(0, nullptr, 0), crcFrom, static_cast<uInt>(out.size() - start))));
}

}  // namespace

std::string EncodePng(const std::vector<std::uint8_t> &rgba, int width, int height) {
    std::string header;
    PutWord(header, static_cast<std::uint32_t>(width));
    PutWord(header, static_cast<std::uint32_t>(height));
    header += std::string{8, 2, 0, 0, 0};  // 8 bits, truecolour, deflate, no filter method, no interlace
    // Each row: filter type 0, then RGB.
    std::string raw;
    raw.reserve(static_cast<std::size_t>(height) * (1 + 3 * static_cast<std::size_t>(width)));
    for (int y = 0; y < height; ++y) {
        raw += '\0';
        const std::uint8_t *p = &rgba[static_cast<std::size_t>(y) * width * 4];
        for (int x = 0; x < width; ++x, p += 4) raw.append(reinterpret_cast<const char *>(p), 3);
    }
    uLongf packedSize = compressBound(static_cast<uLong>(raw.size()));
    std::string packed(packedSize, '\0');
    compress2(reinterpret_cast<Bytef *>(packed.data()), &packedSize, reinterpret_cast<const Bytef *>(raw.data()),
              static_cast<uLong>(raw.size()), Z_BEST_COMPRESSION);
    packed.resize(packedSize);
    std::string out("\x89PNG\r\n\x1a\n", 8);
    PutChunk(out, "IHDR", header);
    PutChunk(out, "IDAT", packed);
    PutChunk(out, "IEND", {});
    return out;
}

bool WritePng(const std::string &path, const std::vector<std::uint8_t> &rgba, int width, int height) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    const std::string bytes = EncodePng(rgba, width, height);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return !out.fail();
}

}  // namespace qor
