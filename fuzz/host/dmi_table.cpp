// The SMBIOS table parser on arbitrary bytes.
#include <cstddef>
#include <cstdint>

#include "qor/host/DmiTable.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    for (const auto &structure : qor::hostinfo::ParseDmiTable({data, size})) {
        structure.String(0x17);
        structure.String(0x04);
        qor::hostinfo::DmiMemoryDeviceSize(structure);
    }
    return 0;
}
