// Finds the font file fontconfig would use for a face name and weight, the
// counterpart of selecting a log font by name on Windows.
#pragma once

#include <string>

namespace qor {

// The file of the best match for the face name (its first 31 characters, as
// a log font holds) and a Windows weight (0 default, 400 normal, 700 bold);
// empty when fontconfig knows no font at all.
std::string FindFontFile(const std::string &faceName, int weight);

}  // namespace qor
