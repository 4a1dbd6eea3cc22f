// Turns the document tree into a buffer or a file, stamped on its root.
#pragma once

#include <string>
#include <utility>

#include "qor/xml/XMLParser.h"

// Writes documents of the dialect. The constructor names the root
// DEFAULT_ROOT_NAME and sets its file and version attributes; the owner
// fills the tree; then the tree is written once. With writeMD5Sum the root
// gets an md5sum attribute whose value is the MD5 of the written text with
// that value replaced by thirty-two '0's.
//
// Writing with the sum escapes attribute values in place in the tree, so a
// second write of the same writer escapes them again; without the sum
// attribute values are written raw (and ' < & in them damage the document).
class XMLWriter : public virtual XMLParser {
public:
    XMLWriter(const std::string &fileType, const std::string &version, bool writeMD5Sum);
    XMLWriter(const XMLWriter &) = default;
    XMLWriter(XMLWriter &&) = default;
    XMLWriter &operator=(const XMLWriter &other) {
        XMLParser::operator=(other);
        writeMD5Sum = other.writeMD5Sum;
        return *this;
    }
    XMLWriter &operator=(XMLWriter &&other) noexcept {
        XMLParser::operator=(std::move(other));
        writeMD5Sum = other.writeMD5Sum;
        return *this;
    }

    // Writes through a temporary working file, then replaces path atomically
    // (a copy beside it, renamed over it), creating missing folders. A crash
    // leaves the old document or the new one. Throws code 0 or 1.
    void Write(const char *path);

    // Writes to path in place, creating missing folders. Throws code 0 or 1.
    void WriteDirectly(const char *path);

    // The document text, header first, lines ending in '\n'.
    void WriteToBuffer(std::string &out);

protected:
    bool writeMD5Sum;
};
