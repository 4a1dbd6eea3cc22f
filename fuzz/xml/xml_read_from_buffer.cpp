// Any bytes given to ReadFromBuffer end in a tree or in XMLParserException,
// never in a crash, a hang or a sanitizer report; and whatever was read can
// be written and hashed.
#include <cstddef>
#include <cstdint>
#include <string>

#include "qor/xml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) return 0;
    // The first byte chooses the header rule, the rest is the document.
    const bool noHeader = data[0] & 1;
    const std::string buffer(reinterpret_cast<const char *>(data) + 1, size - 1);
    XMLReaderAndWriter document("MetaData", "1.0");
    try {
        document.ReadFromBuffer(buffer, noHeader);
    } catch (const XMLParserException &e) {
        if (e.code < 0 || e.code > 5 || e.function.empty() || e.message.empty()) __builtin_trap();
    }
    std::string text;
    document.WriteToBuffer(text);
    XMLReader again;
    try {
        again.ReadFromBuffer(text, false);
    } catch (const XMLParserException &) {
        // Names and keys the tokeniser cut may hold bytes that do not survive
        // a second reading; failing cleanly is all that is asked.
    }
    return 0;
}
