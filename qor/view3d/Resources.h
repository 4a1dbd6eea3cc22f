// Module resources on Linux: blobs a program embeds at build time (see the
// CMake function qor_embed_resource) and registers under a module, an id and
// a type, where Windows would find them in the executable's resource section.
#pragma once

#include <cstddef>
#include <string>

#include "qor/platform/Win32Types.h"

namespace qor {

// Registers size bytes at data, which must outlive their use, under
// (module, id & 0xFFFF, type); a null module is the running program. A second
// registration under the same key replaces the first.
void RegisterResource(HINSTANCE__ *module, unsigned id, const std::string &type, const void *data,
                      std::size_t size);

struct ResourceBytes {
    const char *data = nullptr;
    std::size_t size = 0;
    explicit operator bool() const { return data != nullptr; }
};

// The bytes registered under (module, id & 0xFFFF, type), or none.
ResourceBytes FindResource(HINSTANCE__ *module, unsigned id, const std::string &type);

}  // namespace qor
