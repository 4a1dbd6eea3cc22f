// The colours of a surface, in the order the binary model format stores them.
#pragma once

#include <type_traits>

// Fourteen floats: ambient, diffuse, emissive and specular colour, shininess,
// transparency. A new material glows full white: a material block that says
// nothing of its emissive colour is drawn white, and models rely on it.
struct Material {
    float ambient[3] = {0, 0, 0};
    float diffuse[3] = {0, 0, 0};
    float emissive[3] = {1, 1, 1};
    float specular[3] = {0, 0, 0};
    float shininess = 0;
    float transparency = 0;

    // All fourteen floats to 0, emissive included.
    void RemoveAllColors();

    // Exact equality of all fourteen floats.
    bool operator==(const Material &other) const;
    bool operator!=(const Material &other) const { return !(*this == other); }
};

static_assert(sizeof(Material) == 56 && std::is_trivially_copyable_v<Material>);
