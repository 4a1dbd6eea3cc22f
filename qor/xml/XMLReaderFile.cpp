// Reading a document from a file.
#include <cstring>

#include "qor/platform/Files.h"
#include "qor/xml/XMLReader.h"

namespace {

[[noreturn]] void ThrowReadFile(const std::string &message) {
    throw XMLParserException(0, "XMLReader::Read", "Unable to read the file: \r\n" + message);
}

// A file written on Windows ends its lines in CR LF and one written here in
// LF; both must read the same, as the sum was taken over LF.
void DropCarriageReturnsBeforeLineFeeds(std::string &text) {
    if (text.find("\r\n") == std::string::npos) return;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        text[kept++] = text[i];
    }
    text.resize(kept);
}

}  // namespace

void XMLReader::Read(const char *path) {
    if (!path) ThrowReadFile("Null path pointer");
    if (!*path) ThrowReadFile("No path info");
    std::string contents;
    if (qor::ReadWholeFile(path, contents) != 0)
        ThrowReadFile(std::string("File ") + path + " not found");
    if (contents.empty()) return;
    DropCarriageReturnsBeforeLineFeeds(contents);
    ReadFromBuffer(contents, false);
}
