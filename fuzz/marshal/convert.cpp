// Convert from arbitrary text against a literal text stream of precision 10:
// the same value for every target type, and no byte read past the text.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "../../tests/marshal/StreamReference.h"
#include "qor/marshal/Convert.h"

namespace {

using marshal_reference::StreamConvert;

template <class To>
void Check(std::string_view view, const std::string &copy) {
    const To fast = Convert<To>(view);
    const To slow = StreamConvert<To>(copy);
    if constexpr (std::is_floating_point_v<To>) {
        if (fast != slow && !(std::isnan(fast) && std::isnan(slow))) std::abort();
    } else {
        if (fast != slow) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    // An exact-size heap copy, so that a read past the end trips the sanitizer.
    std::unique_ptr<char[]> exact(new char[size ? size : 1]);
    std::memcpy(exact.get(), data, size);
    const std::string_view view(exact.get(), size);
    const std::string copy(view);
    Check<int>(view, copy);
    Check<unsigned int>(view, copy);
    Check<short>(view, copy);
    Check<unsigned short>(view, copy);
    Check<bool>(view, copy);
    Check<double>(view, copy);
    qor::convert::TextToLong(view);
    return 0;
}
