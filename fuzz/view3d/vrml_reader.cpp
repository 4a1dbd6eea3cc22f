// Any text given to the VRML subset reader ends in a model, never in a crash,
// a hang or a sanitizer report; its faces' materials all exist; the model is
// bit for bit what the literal token walk below makes of the same text, and
// its numbers what stream input makes of them; and the model's welding
// agrees with the literal scan.
//
// The literal walk is the reader as first written: cut a token at each fixed
// terminator, read its numbers through a string stream and its indices
// through strtol with the 32-bit original's clamp. It is slow on purpose and
// lives only here, as the measure of the fast reader.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "qor/view3d.h"
#include "qor/view3d/VrmlText.h"

namespace {

namespace literal {

constexpr std::size_t npos = std::string_view::npos;

std::string_view ExtractString(std::string_view text, std::size_t &position, std::string_view terminator) {
    const std::size_t i = text.find(terminator, position);
    if (i == npos) return {};
    const std::string_view result = text.substr(position, i - position + 2);
    position = i + terminator.size();
    return result;
}

void ExtractFloats(std::string_view text, float *out, int n) {
    std::istringstream in{std::string(text)};
    for (int i = 0; i < n; ++i) {
        float value;
        if (in >> value) out[i] = value;  // a failed read leaves its slot
    }
}

void ExtractColor(std::string_view block, std::string_view key, float *out, int n) {
    const std::size_t k = block.find(key);
    if (k == npos) return;
    std::string_view rest = block.substr(k + key.size());
    if (rest.empty()) return;
    if (const std::size_t close = rest.find(']'); close != npos) rest = rest.substr(0, close);
    if (const std::size_t open = rest.find('['); open != npos) rest = rest.substr(open + 1);
    ExtractFloats(rest, out, n);
}

std::int32_t Atoi(std::string_view piece) {
    const long long v = std::strtoll(std::string(piece).c_str(), nullptr, 10);
    return static_cast<std::int32_t>(
        std::clamp<long long>(v, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

struct Model {
    std::vector<Vector3D> vertices;
    std::vector<Face> faces;
    std::vector<Material> materials;
};

void Parse(std::string_view text, Model &m) {
    m.vertices.clear();
    m.faces.clear();
    std::size_t position = 0;
    std::uint32_t base = 0;
    for (;;) {
        if (ExtractString(text, position, "Material {").empty()) return;
        const std::string_view block = ExtractString(text, position, "}");
        if (block.empty()) return;
        Material material;
        ExtractColor(block, "ambientColor", material.ambient, 3);
        ExtractColor(block, "diffuseColor", material.diffuse, 3);
        ExtractColor(block, "emissiveColor", material.emissive, 3);
        ExtractColor(block, "specularColor", material.specular, 3);
        ExtractColor(block, "shininess", &material.shininess, 1);
        ExtractColor(block, "transparency", &material.transparency, 1);
        std::size_t index = 0;
        while (index < m.materials.size() && !(m.materials[index] == material)) ++index;
        if (index == m.materials.size()) m.materials.push_back(material);

        if (ExtractString(text, position, "point [").empty()) return;
        std::uint32_t count = 0;
        for (bool last = false; !last;) {
            const std::size_t close = text.find(']', position), comma = text.find(',', position);
            if (close == npos && comma == npos) return;  // else origins for ever
            last = close < comma;
            const std::string_view token = ExtractString(text, position, last ? "]" : ",");
            Vector3D v{0, 0, 0};
            ExtractFloats(token, &v.x, 3);
            m.vertices.push_back(v);
            ++count;
        }

        if (ExtractString(text, position, "coordIndex [").empty()) return;
        for (;;) {
            while (position < text.size() && static_cast<signed char>(text[position]) < '0') ++position;
            const std::size_t close = text.find(']', position), end = text.find("-1", position);
            if (close < end) break;
            if (end == npos) return;  // else zero faces for ever
            const std::string_view polygon = ExtractString(text, position, "-1");
            std::size_t at = 0;
            std::int32_t i[3];
            for (std::int32_t &slot : i)
                slot = static_cast<std::int32_t>(static_cast<std::uint32_t>(Atoi(ExtractString(polygon, at, ","))) + base);
            m.faces.push_back({i[0], i[1], i[2], static_cast<std::int32_t>(index)});
        }
        base += count;
    }
}

}  // namespace literal

template <class T>
bool SameBits(const std::vector<T> &a, const std::vector<T> &b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

// Numbers straight from the input, so that every form of them is tried
// without the tokens around it.
void CheckFloats(std::string_view text) {
    float ours[3] = {-7, -7, -7}, theirs[3] = {-7, -7, -7};
    qor::vrml::ExtractFloats(text, ours, 3);
    literal::ExtractFloats(text, theirs, 3);
    if (std::memcmp(ours, theirs, sizeof ours) != 0) __builtin_trap();
}

void CheckWelding(const std::vector<Vector3D> &vertices, double spacing) {
    if (vertices.size() > 400) return;  // the literal scan is quadratic
    const qor::WeldResult fast = qor::WeldVertices(vertices, spacing);
    const qor::WeldResult slow = qor::WeldVerticesByScan(vertices, spacing);
    if (fast.remap != slow.remap || fast.vertices.size() != slow.vertices.size()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    VRMLModel model;
    model.ReadVrml(text, false);
    for (const Face &f : model.GetFaces())
        if (f.material < 0 || static_cast<std::size_t>(f.material) >= model.GetMaterials().size()) __builtin_trap();
    literal::Model expected;
    literal::Parse(text, expected);
    if (!SameBits(model.GetVertices(), expected.vertices) || !SameBits(model.GetFaces(), expected.faces) ||
        !SameBits(model.GetMaterials(), expected.materials))
        __builtin_trap();
    CheckFloats(text.substr(0, 64));
    // The spacing from the input's first byte: from the default to coarse.
    const double spacing = size ? 0.001 * (1 + data[0] % 200) : 0.001;
    CheckWelding(model.GetVertices(), spacing);
    model.SetGridSpacing(spacing);
    model.ReadVrml(text, true);
    return 0;
}
