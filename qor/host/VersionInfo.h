// CVersionInfo: the version resource of a Windows PE file (.exe, .dll, .sys
// and the like, 32- or 64-bit), read directly from the file, so it works on
// Linux for driver files and installers alike.
//
// An object that could not load (no such file, not a PE file, no version
// resource, or a damaged one) is empty: numbers read 0, the fixed info is
// null, and string reads give their default. Loading never throws.
//
// String reads look in the string table of the current translation (index 0
// at first; see SetTranslation). When the resource lists no translations, the
// string tables it holds stand in for them, in their order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "qor/host/VersionBlock.h"
#include "qor/host/VersionTypes.h"

// A loaded module, as a dlopen() handle (see the constructor).
struct HINSTANCE__;

class CVersionInfo {
public:
    struct TRANSLATION {
        WORD language;  // e.g. 0x0409
        WORD codePage;  // e.g. 0x04B0
    };

    CVersionInfo() = default;
    // Loads the file at `path`; an unreadable file leaves the object empty.
    explicit CVersionInfo(const std::string &path);
    // Loads the file a module was loaded from: `module` is a handle from
    // dlopen(), null for the running program. ELF files carry no version
    // resource, so this gives an empty object unless the module is a PE file.
    explicit CVersionInfo(HINSTANCE__ *module);
    virtual ~CVersionInfo() = default;

    // Frees what was held and loads `path`. Nonzero when a version resource
    // was found.
    int Load(const std::string &path);
    // The same for a PE image already in memory.
    int LoadFromMemory(const void *image, std::size_t size);

    // Fixed fields: 0 when nothing is loaded. Versions are MS << 32 | LS.
    unsigned long long GetFileVersion() const;
    unsigned long long GetProductVersion() const;
    unsigned long GetFileFlags() const;
    unsigned long GetFileFlagsMask() const;
    unsigned long GetFileType() const;
    unsigned long GetFileSubType() const;
    unsigned long GetOS() const;
    _FILETIME GetCreationTime() const;
    // Null when nothing is loaded or the resource has no fixed part.
    const tagVS_FIXEDFILEINFO *GetFixedFileInfo() const;

    // The value of a key of the current translation's string table, or
    // `defaultValue` when there is no such key or nothing is loaded.
    std::string GetValue(const std::string &key, const std::string &defaultValue = "Unknown") const;

    std::string GetComments() const { return GetValue("Comments"); }
    std::string GetCompanyName() const { return GetValue("CompanyName"); }
    std::string GetFileDescription() const { return GetValue("FileDescription"); }
    std::string GetInternalName() const { return GetValue("InternalName"); }
    std::string GetLegalCopyright() const { return GetValue("LegalCopyright"); }
    std::string GetLegalTrademarks() const { return GetValue("LegalTrademarks"); }
    std::string GetOriginalFilename() const { return GetValue("OriginalFilename"); }
    std::string GetPrivateBuild() const { return GetValue("PrivateBuild"); }
    // Asks for the key "Productname", small n and all, as programs written for
    // this class expect; resources that key it "ProductName" give "Unknown".
    std::string GetProductName() const { return GetValue("Productname"); }
    std::string GetSpecialBuild() const { return GetValue("SpecialBuild"); }
    // "FileVersion" with commas made points and blanks removed; a value with
    // no point gains ".0.0", one with a single point gains ".0". "Unknown"
    // when the key is missing.
    std::string GetFileVersionAsString() const;
    // "ProductVersion" with the same comma and blank changes, not padded.
    std::string GetProductVersionAsString() const;

    // The translation at `index`, or null when there is none.
    const TRANSLATION *GetTranslation(int index) const;
    int GetTranslationCount() const { return static_cast<int>(translations_.size()); }
    // Makes `index` the current translation; false (and no change) when out of range.
    bool SetTranslation(int index);

    // The whole resource as a tree, for tools that list every table; null
    // when nothing is loaded.
    const qor::VersionBlock *GetVersionBlock() const { return root_ ? &*root_ : nullptr; }

private:
    void Clear();
    std::optional<std::string> Query(const std::string &key) const;

    std::optional<qor::VersionBlock> root_;
    std::optional<tagVS_FIXEDFILEINFO> fixed_;
    std::vector<TRANSLATION> translations_;
    int current_ = 0;
};
