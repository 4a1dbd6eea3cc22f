// The linear reader against the literal one that the tests keep: the same
// tree or the same exception, and the same half-built tree after it.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "qor/xml.h"

// The reference is test code, compiled in here rather than made a library.
#include "../../tests/xml/ReferenceParser.cpp"
#include "../../tests/xml/TestSupport.cpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0 || size > 4096) return 0;
    const bool noHeader = data[0] & 1;
    const std::string buffer(reinterpret_cast<const char *>(data) + 1, size - 1);
    XMLReader fast;
    qor::XMLNodeData slow;
    fast.name = slow.name = "Previous";
    auto fastFailure = xmltest::Failure([&] { fast.ReadFromBuffer(buffer, noHeader); });
    auto slowFailure = xmltest::Failure([&] { reference::ReadFromBuffer(slow, buffer, noHeader); });
    if (fastFailure != slowFailure || xmltest::Dump(fast) != xmltest::Dump(slow)) __builtin_trap();
    return 0;
}
