// Builds small but valid PE images with a version resource, so the version
// reader is tested against files whose every byte the test controls.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "qor/host/VersionTypes.h"

namespace qor::test {

struct StringTableLayout {
    std::string key;  // "040904b0"
    std::vector<std::pair<std::string, std::string>> values;
};

struct VersionResourceLayout {
    bool withFixedInfo = true;
    tagVS_FIXEDFILEINFO fixed{};  // the signature is filled in
    std::vector<StringTableLayout> tables;
    bool withTranslations = true;
    std::vector<std::pair<std::uint16_t, std::uint16_t>> translations;  // language, code page
};

// The VS_VERSIONINFO block of the resource.
std::vector<std::uint8_t> BuildVersionResource(const VersionResourceLayout &layout);

struct PeImageOptions {
    bool pe32Plus = false;
    // An icon resource type ahead of RT_VERSION, as real files have.
    bool iconTypeFirst = true;
};

// A one-section PE image whose resource tree holds `resource` as RT_VERSION 1,
// language 0x0409.
std::vector<std::uint8_t> BuildPeImage(const std::vector<std::uint8_t> &resource,
                                       const PeImageOptions &options = {});
// The same with one RT_VERSION 1 resource per language, in the given order.
using LanguageResources = std::vector<std::pair<std::uint16_t, std::vector<std::uint8_t>>>;
std::vector<std::uint8_t> BuildPeImage(const LanguageResources &resources, const PeImageOptions &options = {});

// A typical resource: fixed versions 1.2.3.4 / 5.6.7.8, one US English table.
VersionResourceLayout TypicalVersionLayout();

}  // namespace qor::test
