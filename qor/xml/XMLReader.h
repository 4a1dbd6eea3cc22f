// Turns a file or a buffer into the document tree.
#pragma once

#include <string>
#include <utility>

#include "qor/xml/XMLParser.h"

// Reads documents of the dialect. A reader may be reused: each successful
// read replaces the document. After a failed read the tree stays in whatever
// state the parse reached; a bad header leaves the previous tree untouched.
// The stored md5sum is not checked (see XMLParser::GetMD5Sum to verify).
class XMLReader : public virtual XMLParser {
public:
    XMLReader() = default;
    XMLReader(const XMLReader &) = default;
    XMLReader(XMLReader &&) = default;
    XMLReader &operator=(const XMLReader &other) {
        XMLParser::operator=(other);
        return *this;
    }
    XMLReader &operator=(XMLReader &&other) noexcept {
        XMLParser::operator=(std::move(other));
        return *this;
    }

    // Reads a whole file. An empty file changes nothing. Carriage returns
    // before line feeds are dropped, so a file reads the same whatever its
    // line ends. Throws code 0 on a null or empty path or a file that cannot
    // be opened, and whatever ReadFromBuffer throws.
    void Read(const char *path);

    // Parses buffer: with noHeader false the first tag must be
    // "<?xml version='1.0' ...?>", otherwise the first tag is the root.
    // Comments and a doctype are dropped first. Linear in the buffer's size.
    void ReadFromBuffer(const std::string &buffer, bool noHeader = false);
};
