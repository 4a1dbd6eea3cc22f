// The five entities of the dialect, both ways, in place.
#pragma once

#include <string>

// Replaces each of & < > " ' by its entity and returns `text`. Every '&' is
// escaped, also one that already begins an entity.
std::string &EscapeXML(std::string &text);

// Replaces the five entities by their characters in one left-to-right pass
// and returns `text`. A replaced character is never looked at again, so
// "&amp;lt;" becomes "&lt;"; a lone '&' and numeric references stay as they
// are.
std::string &UnescapeXML(std::string &text);
