// Byte strings to and from the toolkit's strings: UTF-8 where the bytes are
// UTF-8, Latin-1 otherwise, so that no cell shows up empty.
#pragma once

#include <wx/string.h>

#include <string>

namespace qor::wx {

inline wxString ToWx(const std::string &bytes) {
    wxString text = wxString::FromUTF8(bytes.data(), bytes.size());
    if (text.empty() && !bytes.empty()) text = wxString::From8BitData(bytes.data(), bytes.size());
    return text;
}

inline std::string FromWx(const wxString &text) {
    wxScopedCharBuffer utf8 = text.utf8_str();
    return std::string(utf8.data(), utf8.length());
}

}  // namespace qor::wx
