// A literal, slow rendering of the dialect's reading rules: it erases the
// front of the buffer and searches again from position 0, exactly as the
// rules are phrased. The library's linear parser must agree with it on
// every input, failures and half-built trees included.
#pragma once

#include <string>

#include "qor/xml.h"

namespace reference {

std::string &Escape(std::string &text);
std::string &Unescape(std::string &text);

void Discard(std::string &buffer, const std::string &startTag, const std::string &endTag);
std::string FindNextTag(std::string &buffer, qor::XMLNodeData *currentNode);
qor::XMLNodeData NodeFromTag(const std::string &tag);

// ReadFromBuffer on `document`, which plays the reader's root.
void ReadFromBuffer(qor::XMLNodeData &document, const std::string &buffer, bool noHeader);

}  // namespace reference
