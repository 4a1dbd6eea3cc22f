// A flat combo box whose list is a recent-entries list kept in the registry.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qor/controls/wx/XTFlatComboBox.h"
#include "qor/settings/RegistryMRU.h"

// The list is the RegistryMRU under `key` (below `root`): its entries, the
// most recent first, at most `maxEntries`. An entry the user commits (Enter
// in the text, or a choice from the list) goes to the front, and the list
// is saved at once, so a crash loses nothing. Entries that leave the list
// leave the registry too, so they do not come back at the next start.
// Entries compare without regard to ASCII case unless told otherwise.
class CXTFlatMRUComboBox : public CXTFlatComboBox {
public:
    static constexpr unsigned kDefaultMaxEntries = 10;

    CXTFlatMRUComboBox(wxWindow *parent, wxWindowID id, const std::string &key,
                       unsigned maxEntries = kDefaultMaxEntries, HKEY root = HKEY_CURRENT_USER,
                       bool caseSensitive = false, const wxPoint &pos = wxDefaultPosition,
                       const wxSize &size = wxDefaultSize, long style = wxTE_PROCESS_ENTER);

    // Puts `text` at the front of the list and saves; empty text is ignored.
    void AddToMRU(const std::string &text);
    void RemoveFromMRU(const std::string &text);
    void ClearMRU();
    std::vector<std::string> GetMRU() const;

private:
    void Commit(const wxString &text);
    void Store();
    void Refill();

    std::string key;
    unsigned maxEntries;
    std::unique_ptr<RegistryMRU> mru;
};
