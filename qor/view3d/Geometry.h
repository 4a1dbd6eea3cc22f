// The plain values a model is made of: a point and a triangle. Both are laid
// out exactly as the binary model format stores them, so a file block is an
// array of them.
#pragma once

#include <cstdint>
#include <type_traits>

// A point or a direction: three 32-bit floats.
struct Vector3D {
    float x = 0;
    float y = 0;
    float z = 0;
};

// One triangle: three vertex indices and the index of its material.
struct Face {
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::int32_t third = 0;
    std::int32_t material = 0;
};

static_assert(sizeof(Vector3D) == 12 && std::is_trivially_copyable_v<Vector3D>);
static_assert(sizeof(Face) == 16 && std::is_trivially_copyable_v<Face>);
