// A most-recently-used list of strings kept under one registry key.
#pragma once

#include <string>
#include <vector>

#include "qor/settings/Registry.h"

// Loaded from the registry on construction and saved on destruction. Each
// entry is the string value "MRU <index>" under keyPath, the most recent as
// "MRU 0". Loading closes gaps in the numbering; saving writes the current
// entries and leaves values of higher numbers as they are, so entries
// dropped from the list come back at the next load unless overwritten.
// Registry failures are ignored. A list belongs to one thread.
class RegistryMRU : public CRegistry {
public:
    RegistryMRU(const std::string &keyPath, HKEY__ *const root, unsigned int maxEntries,
                bool caseSensitive);
    ~RegistryMRU() override;

    // Puts text at the front, removing equal entries first (equal by case
    // too unless caseSensitive), and drops the oldest beyond maxEntries.
    void AddMRU(const std::string &text);
    void PushFrontMRU(const std::string &text);
    // Removes every entry equal to text.
    void DeleteMRU(const std::string &text);
    // Empties the list; the registry keeps its values.
    void DeleteMRUs();
    // The entries, the most recent first, at most maxEntries of them.
    void EnumerateMRUs(std::vector<std::string> &out);

    void LoadMRUs();
    void SaveMRUs();

protected:
    void PushBackMRU(const std::string &text);
    void PrintMRUs();

private:
    bool SameEntry(const std::string &a, const std::string &b) const;
    void Trim();

    std::string keyPath;
    unsigned int maxEntries;
    bool caseSensitive;
    std::vector<std::string> entries;
};
