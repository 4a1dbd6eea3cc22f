// Names every document of the dialect carries on its root.
#pragma once

#include <string>

// Inline so that they are initialised before any static object of a
// translation unit that includes this header.
inline const std::string DEFAULT_ROOT_NAME = "Brindlemar";  // root element of written documents
inline const std::string FILETYPE_ATTRIBUTE = "file";       // root attribute: kind of document
inline const std::string VERSION_ATTRIBUTE = "version";     // of the ?xml header and of the root
inline const std::string MD5SUM_ATTRIBUTE = "md5sum";       // root attribute: the document's sum
