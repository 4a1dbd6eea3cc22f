#include "qor/host/VersionInfo.h"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

#include "qor/host/PeResource.h"

namespace {

constexpr DWORD kFixedInfoSignature = 0xFEEF04BD;
// No version resource comes near this; a larger file is read only this far.
constexpr std::size_t kMaxImageRead = std::size_t(1) << 30;

std::string NormaliseVersionText(std::string text) {
    std::replace(text.begin(), text.end(), ',', '.');
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

DWORD LittleEndian32(const std::uint8_t *at) {
    return DWORD(at[0]) | (DWORD(at[1]) << 8) | (DWORD(at[2]) << 16) | (DWORD(at[3]) << 24);
}

}  // namespace

CVersionInfo::CVersionInfo(const std::string &path) { Load(path); }

CVersionInfo::CVersionInfo(HINSTANCE__ *module) {
    std::string path = "/proc/self/exe";
    if (module != nullptr) {
        link_map *map = nullptr;
        if (dlinfo(module, RTLD_DI_LINKMAP, &map) == 0 && map != nullptr && map->l_name != nullptr &&
            map->l_name[0] != '\0')
            path = map->l_name;
    }
    Load(path);
}

void CVersionInfo::Clear() {
    root_.reset();
    fixed_.reset();
    translations_.clear();
    current_ = 0;
}

int CVersionInfo::Load(const std::string &path) {
    Clear();
    std::ifstream file(path, std::ios::binary);
    if (!file) return 0;
    std::vector<char> image;
    char chunk[65536];
    while (image.size() < kMaxImageRead && file.read(chunk, sizeof chunk).gcount() > 0)
        image.insert(image.end(), chunk, chunk + file.gcount());
    return LoadFromMemory(image.data(), image.size());
}

int CVersionInfo::LoadFromMemory(const void *image, std::size_t size) {
    Clear();
    if (image == nullptr || size == 0) return 0;
    auto resource = qor::FindVersionResource({static_cast<const std::uint8_t *>(image), size});
    if (!resource) return 0;
    root_ = qor::ParseVersionBlock(*resource);
    if (!root_) return 0;

    if (root_->value.size() >= sizeof(tagVS_FIXEDFILEINFO) &&
        LittleEndian32(root_->value.data()) == kFixedInfoSignature) {
        DWORD words[13];
        for (int i = 0; i < 13; ++i) words[i] = LittleEndian32(root_->value.data() + 4 * i);
        tagVS_FIXEDFILEINFO info;
        std::memcpy(&info, words, sizeof info);
        fixed_ = info;
    }

    if (const qor::VersionBlock *table = qor::FindVersionBlock(*root_, "\\VarFileInfo\\Translation")) {
        for (std::size_t i = 0; i + 4 <= table->value.size(); i += 4) {
            const std::uint8_t *at = table->value.data() + i;
            translations_.push_back({static_cast<WORD>(at[0] | (at[1] << 8)),
                                     static_cast<WORD>(at[2] | (at[3] << 8))});
        }
    }
    if (translations_.empty()) {
        if (const qor::VersionBlock *strings = qor::FindVersionBlock(*root_, "\\StringFileInfo")) {
            for (const qor::VersionBlock &table : strings->children) {
                unsigned language = 0, codePage = 0;
                if (table.key.size() == 8 &&
                    std::sscanf(table.key.c_str(), "%4x%4x", &language, &codePage) == 2)
                    translations_.push_back({static_cast<WORD>(language), static_cast<WORD>(codePage)});
            }
        }
    }
    return 1;
}

unsigned long long CVersionInfo::GetFileVersion() const {
    return fixed_ ? (static_cast<unsigned long long>(fixed_->dwFileVersionMS) << 32) | fixed_->dwFileVersionLS
                  : 0;
}

unsigned long long CVersionInfo::GetProductVersion() const {
    return fixed_ ? (static_cast<unsigned long long>(fixed_->dwProductVersionMS) << 32) |
                        fixed_->dwProductVersionLS
                  : 0;
}

unsigned long CVersionInfo::GetFileFlags() const { return fixed_ ? fixed_->dwFileFlags : 0; }
unsigned long CVersionInfo::GetFileFlagsMask() const { return fixed_ ? fixed_->dwFileFlagsMask : 0; }
unsigned long CVersionInfo::GetFileType() const { return fixed_ ? fixed_->dwFileType : 0; }
unsigned long CVersionInfo::GetFileSubType() const { return fixed_ ? fixed_->dwFileSubtype : 0; }
unsigned long CVersionInfo::GetOS() const { return fixed_ ? fixed_->dwFileOS : 0; }

_FILETIME CVersionInfo::GetCreationTime() const {
    if (!fixed_) return {0, 0};
    return {fixed_->dwFileDateLS, fixed_->dwFileDateMS};
}

const tagVS_FIXEDFILEINFO *CVersionInfo::GetFixedFileInfo() const {
    return fixed_ ? &*fixed_ : nullptr;
}

std::optional<std::string> CVersionInfo::Query(const std::string &key) const {
    if (!root_ || current_ < 0 || current_ >= static_cast<int>(translations_.size()))
        return std::nullopt;
    const TRANSLATION &t = translations_[static_cast<std::size_t>(current_)];
    char path[256];
    std::snprintf(path, sizeof path, "\\StringFileInfo\\%04x%04x\\%s", t.language, t.codePage,
                  key.c_str());
    if (key.size() > 200) return std::nullopt;
    const qor::VersionBlock *block = qor::FindVersionBlock(*root_, path);
    if (block == nullptr || !block->children.empty()) return std::nullopt;
    return qor::VersionText(*block);
}

std::string CVersionInfo::GetValue(const std::string &key, const std::string &defaultValue) const {
    auto value = Query(key);
    return value ? *value : defaultValue;
}

std::string CVersionInfo::GetFileVersionAsString() const {
    auto value = Query("FileVersion");
    if (!value) return "Unknown";
    std::string text = NormaliseVersionText(*value);
    auto points = std::count(text.begin(), text.end(), '.');
    if (points == 0) text += ".0.0";
    else if (points == 1) text += ".0";
    return text;
}

std::string CVersionInfo::GetProductVersionAsString() const {
    auto value = Query("ProductVersion");
    return value ? NormaliseVersionText(*value) : "Unknown";
}

const CVersionInfo::TRANSLATION *CVersionInfo::GetTranslation(int index) const {
    if (index < 0 || index >= static_cast<int>(translations_.size())) return nullptr;
    return &translations_[static_cast<std::size_t>(index)];
}

bool CVersionInfo::SetTranslation(int index) {
    if (index < 0 || index >= static_cast<int>(translations_.size())) return false;
    current_ = index;
    return true;
}
