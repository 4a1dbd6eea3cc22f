// A client of the installed 3-D view: a resource embedded by the installed
// qor_embed_resource is found under its id and type.
#include <cstdio>

#include "qor/view3d.h"

int main() {
    const qor::ResourceBytes bytes = qor::FindResource(nullptr, 101, "OpenGL");
    std::printf("model client: resource of %zu bytes\n", bytes.size);
    return bytes && bytes.size > 0 ? 0 : 1;
}
