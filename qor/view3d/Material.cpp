#include "qor/view3d/Material.h"

#include <algorithm>
#include <iterator>

namespace {
// The fourteen floats as one array, so equality and clearing treat them alike.
const float *Floats(const Material &m) { return m.ambient; }
float *Floats(Material &m) { return m.ambient; }
constexpr int kFloatCount = sizeof(Material) / sizeof(float);
}  // namespace

void Material::RemoveAllColors() { std::fill_n(Floats(*this), kFloatCount, 0.0f); }

bool Material::operator==(const Material &other) const {
    // Float equality, not bytes: 0 equals -0, and a NaN equals nothing.
    return std::equal(Floats(*this), Floats(*this) + kFloatCount, Floats(other));
}
