#include "qor/host/VersionBlock.h"

#include <algorithm>
#include <cctype>

namespace qor {
namespace {

constexpr std::size_t kBlockHeaderSize = 6;
// Real resources nest four deep; hostile ones must not exhaust the stack.
constexpr int kMaxDepth = 16;

std::size_t AlignUp4(std::size_t offset) { return (offset + 3) & ~std::size_t(3); }

std::uint16_t ReadU16(std::span<const std::uint8_t> bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(bytes[offset] | (bytes[offset + 1] << 8));
}

void AppendUtf8(std::string &out, std::uint32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// Parses the block at `offset` of `bytes` that must end by `limit`. Offsets
// are relative to the start of the resource, where alignment is counted from.
// Returns the block and its end, or nothing when its header is unreadable.
std::optional<VersionBlock> ParseBlockAt(std::span<const std::uint8_t> bytes, std::size_t offset,
                                         std::size_t limit, int depth, std::size_t &end) {
    if (depth > kMaxDepth || offset + kBlockHeaderSize > limit) return std::nullopt;
    std::size_t length = ReadU16(bytes, offset);
    std::size_t valueLength = ReadU16(bytes, offset + 2);
    VersionBlock block;
    block.type = ReadU16(bytes, offset + 4);
    if (length < kBlockHeaderSize) return std::nullopt;
    std::size_t blockEnd = std::min(offset + length, limit);
    end = blockEnd;

    // The key runs to its zero terminator, which must lie inside the block.
    std::size_t at = offset + kBlockHeaderSize;
    std::size_t keyStart = at;
    while (at + 2 <= blockEnd && ReadU16(bytes, at) != 0) at += 2;
    block.key = Utf16ToUtf8(bytes.subspan(keyStart, at - keyStart));
    at = AlignUp4(at + 2);

    // Text values count UTF-16 units; some tools wrote bytes instead, so the
    // value is also cut at its terminator and at the block's end.
    std::size_t valueBytes = block.type == 1 ? valueLength * 2 : valueLength;
    if (at < blockEnd && valueBytes > 0) {
        std::size_t take = std::min(valueBytes, blockEnd - at);
        auto value = bytes.subspan(at, take);
        if (block.type == 1) {
            std::size_t units = 0;
            while (units * 2 + 2 <= value.size() && ReadU16(value, units * 2) != 0) ++units;
            value = value.subspan(0, units * 2);
        }
        block.value.assign(value.begin(), value.end());
        at = AlignUp4(at + take);
    }

    while (at + kBlockHeaderSize <= blockEnd) {
        std::size_t childEnd = 0;
        auto child = ParseBlockAt(bytes, at, blockEnd, depth + 1, childEnd);
        if (!child) break;
        block.children.push_back(std::move(*child));
        std::size_t next = AlignUp4(childEnd);
        if (next <= at) break;
        at = next;
    }
    return block;
}

bool IsHexKey(std::string_view key) {
    return key.size() == 8 &&
           std::all_of(key.begin(), key.end(), [](unsigned char c) { return std::isxdigit(c); });
}

bool KeyMatches(std::string_view wanted, std::string_view key) {
    if (IsHexKey(wanted) && IsHexKey(key))
        return std::equal(wanted.begin(), wanted.end(), key.begin(), [](char a, char b) {
            return std::tolower(static_cast<unsigned char>(a)) ==
                   std::tolower(static_cast<unsigned char>(b));
        });
    return wanted == key;
}

}  // namespace

std::string Utf16ToUtf8(std::span<const std::uint8_t> bytes) {
    std::string out;
    std::size_t units = bytes.size() / 2;
    for (std::size_t i = 0; i < units; ++i) {
        std::uint32_t unit = ReadU16(bytes, i * 2);
        if (unit == 0) break;
        if (unit >= 0xD800 && unit < 0xDC00 && i + 1 < units) {
            std::uint32_t low = ReadU16(bytes, (i + 1) * 2);
            if (low >= 0xDC00 && low < 0xE000) {
                AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
                ++i;
                continue;
            }
        }
        if (unit >= 0xD800 && unit < 0xE000) unit = '?';
        AppendUtf8(out, unit);
    }
    return out;
}

std::optional<VersionBlock> ParseVersionBlock(std::span<const std::uint8_t> resource) {
    std::size_t end = 0;
    return ParseBlockAt(resource, 0, resource.size(), 0, end);
}

const VersionBlock *FindVersionBlock(const VersionBlock &root, std::string_view path) {
    const VersionBlock *block = &root;
    while (!path.empty()) {
        if (path.front() == '\\') {
            path.remove_prefix(1);
            continue;
        }
        std::size_t cut = path.find('\\');
        std::string_view step = path.substr(0, cut);
        path = cut == std::string_view::npos ? std::string_view() : path.substr(cut);
        auto found = std::find_if(block->children.begin(), block->children.end(),
                                  [&](const VersionBlock &child) { return KeyMatches(step, child.key); });
        if (found == block->children.end()) return nullptr;
        block = &*found;
    }
    return block;
}

std::string VersionText(const VersionBlock &block) { return Utf16ToUtf8(block.value); }

}  // namespace qor
