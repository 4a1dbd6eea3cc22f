// Files and folders the way the library's Windows steps need them.
#pragma once

#include <string>

namespace qor {

// The temporary folder with a trailing '/', as GetTempPath gives it:
// $TMPDIR when set and a folder, otherwise /tmp/.
std::string TempDirectory();

// Creates `path` and any missing parents; true when the folder exists after.
bool CreateDirectories(const std::string &path);

// True when `path` names an existing file or folder.
bool PathExists(const std::string &path);

}  // namespace qor
