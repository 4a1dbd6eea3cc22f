#include "qor/controls/wx/XTFlatMRUComboBox.h"

#include <wx/textctrl.h>

CXTFlatMRUComboBox::CXTFlatMRUComboBox(wxWindow *parent, wxWindowID id, const std::string &key,
                                       unsigned maxEntries, HKEY root, bool caseSensitive,
                                       const wxPoint &pos, const wxSize &size, long style)
    : CXTFlatComboBox(parent, id, wxString(), pos, size, wxArrayString(), style),
      key(key),
      maxEntries(maxEntries),
      mru(std::make_unique<RegistryMRU>(key, root, maxEntries, caseSensitive)) {
    Refill();
    // Changing the list inside the event that reports a choice from it would
    // pull the list from under the popup; change it once the event is over.
    Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent &event) {
        Commit(GetValue());
        event.Skip();
    });
    Bind(wxEVT_COMBOBOX, [this](wxCommandEvent &event) {
        Commit(event.GetString());
        event.Skip();
    });
}

void CXTFlatMRUComboBox::Commit(const wxString &text) {
    const std::string entry = text.utf8_string();
    CallAfter([this, entry] { AddToMRU(entry); });
}

void CXTFlatMRUComboBox::AddToMRU(const std::string &text) {
    if (text.empty()) return;
    mru->AddMRU(text);
    Store();
}

void CXTFlatMRUComboBox::RemoveFromMRU(const std::string &text) {
    mru->DeleteMRU(text);
    Store();
}

void CXTFlatMRUComboBox::ClearMRU() {
    mru->DeleteMRUs();
    Store();
}

std::vector<std::string> CXTFlatMRUComboBox::GetMRU() const {
    std::vector<std::string> entries;
    mru->EnumerateMRUs(entries);
    return entries;
}

void CXTFlatMRUComboBox::Store() {
    // The list saves only the entries it has; the numbers past them would
    // bring dropped entries back at the next load, so they go.
    mru->SaveMRUs();
    const auto kept = static_cast<unsigned>(GetMRU().size());
    for (unsigned index = kept; index < maxEntries; ++index)
        mru->DeleteKey(key.c_str(), ("MRU " + std::to_string(index)).c_str());
    Refill();
}

void CXTFlatMRUComboBox::Refill() {
    const wxString value = GetValue();
    Clear();
    for (const std::string &entry : GetMRU()) Append(wxString::FromUTF8(entry));
    ChangeValue(value);
}
