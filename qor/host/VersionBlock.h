// The tree of a version resource: VS_VERSIONINFO, its StringFileInfo with
// string tables, and its VarFileInfo. Each block has a UTF-16 key, a value and
// children; sizes in the resource are checked against their parents, so any
// bytes at all give a tree (possibly empty) and never a read out of bounds.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

struct VersionBlock {
    std::string key;                  // UTF-8
    std::uint16_t type = 0;           // 1 for text, 0 for binary
    std::vector<std::uint8_t> value;  // text: UTF-16LE up to its terminator
    std::vector<VersionBlock> children;
};

// The root block of a version resource, or nothing when not even the root
// header can be read.
std::optional<VersionBlock> ParseVersionBlock(std::span<const std::uint8_t> resource);

// The block at a path such as "\StringFileInfo\040904b0\CompanyName"; "\" is
// the root. Keys compare exactly, case included, except the eight hex digits
// of a string table's language and code page, which compare as the number
// they are. Null when a step is missing.
const VersionBlock *FindVersionBlock(const VersionBlock &root, std::string_view path);

// A text value as UTF-8 (unpaired surrogates become '?').
std::string VersionText(const VersionBlock &block);

// UTF-16LE bytes to UTF-8, stopping at the first zero unit.
std::string Utf16ToUtf8(std::span<const std::uint8_t> bytes);

}  // namespace qor
