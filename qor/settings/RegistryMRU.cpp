#include "qor/settings/RegistryMRU.h"

#include <strings.h>

#include <algorithm>
#include <cstdio>

namespace {

std::string MruValueName(unsigned int index) {
    char name[32];
    std::snprintf(name, sizeof name, "MRU %d", static_cast<int>(index));
    return name;
}

}  // namespace

RegistryMRU::RegistryMRU(const std::string &keyPath, HKEY__ *const root, unsigned int maxEntries,
                         bool caseSensitive)
    : CRegistry(root), keyPath(keyPath), maxEntries(maxEntries), caseSensitive(caseSensitive) {
    LoadMRUs();
}

RegistryMRU::~RegistryMRU() { SaveMRUs(); }

bool RegistryMRU::SameEntry(const std::string &a, const std::string &b) const {
    // _stricmp folds ASCII letters only, like strcasecmp in the "C" locale.
    return caseSensitive ? a == b : strcasecmp(a.c_str(), b.c_str()) == 0;
}

void RegistryMRU::Trim() {
    if (entries.size() > maxEntries) entries.resize(maxEntries);
}

void RegistryMRU::DeleteMRU(const std::string &text) {
    entries.erase(std::remove_if(entries.begin(), entries.end(),
                                 [&](const std::string &entry) { return SameEntry(entry, text); }),
                  entries.end());
}

void RegistryMRU::AddMRU(const std::string &text) {
    DeleteMRU(text);
    entries.insert(entries.begin(), text);
    Trim();
}

void RegistryMRU::PushFrontMRU(const std::string &text) { AddMRU(text); }

void RegistryMRU::PushBackMRU(const std::string &text) {
    DeleteMRU(text);
    entries.push_back(text);
    Trim();
}

void RegistryMRU::DeleteMRUs() { entries.clear(); }

void RegistryMRU::EnumerateMRUs(std::vector<std::string> &out) {
    out = entries;
    if (out.size() > maxEntries) out.resize(maxEntries);
}

void RegistryMRU::LoadMRUs() {
    for (unsigned int index = 0; index < maxEntries; ++index) {
        std::string text;
        if (LoadKey(keyPath.c_str(), MruValueName(index).c_str(), text)) PushBackMRU(text);
    }
}

void RegistryMRU::SaveMRUs() {
    const std::size_t count = std::min<std::size_t>(entries.size(), maxEntries);
    for (std::size_t index = 0; index < count; ++index)
        SaveKey(keyPath.c_str(), MruValueName(static_cast<unsigned int>(index)).c_str(),
                entries[index].c_str());
}

void RegistryMRU::PrintMRUs() {}
