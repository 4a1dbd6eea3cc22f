#include "qor/view3d/Material.h"

#include <algorithm>

void Material::RemoveAllColors() {
    for (float *colour : {ambient, diffuse, emissive, specular}) std::fill_n(colour, 3, 0.0f);
    shininess = 0;
    transparency = 0;
}

bool Material::operator==(const Material &other) const {
    // Float equality, not bytes: 0 equals -0, and a NaN equals nothing.
    return std::equal(ambient, ambient + 3, other.ambient) && std::equal(diffuse, diffuse + 3, other.diffuse) &&
           std::equal(emissive, emissive + 3, other.emissive) && std::equal(specular, specular + 3, other.specular) &&
           shininess == other.shininess && transparency == other.transparency;
}
