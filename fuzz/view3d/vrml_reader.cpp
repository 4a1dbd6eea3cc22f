// Any text given to the VRML subset reader ends in a model, never in a crash,
// a hang or a sanitizer report; its faces' materials all exist; the model's
// welding agrees with the literal scan; and the number reading agrees with
// stream input.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <string_view>

#include "qor/view3d.h"
#include "qor/view3d/VrmlText.h"

namespace {

void CheckWelding(const std::vector<Vector3D> &vertices, double spacing) {
    if (vertices.size() > 400) return;  // the literal scan is quadratic
    const qor::WeldResult fast = qor::WeldVertices(vertices, spacing);
    const qor::WeldResult slow = qor::WeldVerticesByScan(vertices, spacing);
    if (fast.remap != slow.remap || fast.vertices.size() != slow.vertices.size()) __builtin_trap();
}

void CheckFloats(std::string_view text) {
    float ours[3] = {-7, -7, -7}, theirs[3] = {-7, -7, -7};
    qor::vrml::ExtractFloats(text, ours, 3);
    std::istringstream in{std::string(text)};
    for (float &slot : theirs) {
        float value;
        if (in >> value) slot = value;
    }
    if (std::memcmp(ours, theirs, sizeof ours) != 0) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    VRMLModel model;
    model.ReadVrml(text, false);
    for (const Face &f : model.GetFaces())
        if (f.material < 0 || static_cast<std::size_t>(f.material) >= model.GetMaterials().size()) __builtin_trap();
    // The spacing from the input's first byte: from the default to coarse.
    const double spacing = size ? 0.001 * (1 + data[0] % 200) : 0.001;
    CheckWelding(model.GetVertices(), spacing);
    CheckFloats(text.substr(0, 48));
    model.SetGridSpacing(spacing);
    model.ReadVrml(text, true);
    return 0;
}
