// The flat binary model format: vertex count and vertices, face count and
// faces, material count and materials; little-endian, with no magic, version
// or padding. It is also the layout of model resources of the type "OpenGL".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "qor/view3d/Geometry.h"
#include "qor/view3d/Material.h"

namespace qor {

struct BinaryModel {
    std::vector<Vector3D> vertices;
    std::vector<Face> faces;
    std::vector<Material> materials;
};

// Decodes size bytes; nothing when they are fewer than the counts ask for.
// Bytes after the last material are not looked at.
std::optional<BinaryModel> DecodeBinaryModel(const char *data, std::size_t size);

// The bytes of the format for the three arrays.
std::string EncodeBinaryModel(const std::vector<Vector3D> &vertices, const std::vector<Face> &faces,
                              const std::vector<Material> &materials);

}  // namespace qor
