// The VRML subset reader: not a parser but a walk through the text from one
// fixed token to the next, skipping whatever lies between.
#include "qor/view3d/VRMLModel.h"

#include <algorithm>

#include "qor/view3d/VrmlText.h"

using qor::vrml::ExtractString;
using qor::vrml::Finder;

namespace {

constexpr std::size_t npos = std::string_view::npos;

// The material keys in the order they are read, with their slots.
struct ColourKey {
    const char *key;
    float *(*slot)(Material &);
    int count;
};
constexpr ColourKey kColourKeys[] = {
    {"ambientColor", [](Material &m) { return m.ambient; }, 3},
    {"diffuseColor", [](Material &m) { return m.diffuse; }, 3},
    {"emissiveColor", [](Material &m) { return m.emissive; }, 3},
    {"specularColor", [](Material &m) { return m.specular; }, 3},
    {"shininess", [](Material &m) { return &m.shininess; }, 1},
    {"transparency", [](Material &m) { return &m.transparency; }, 1},
};

Material ReadMaterial(std::string_view block) {
    Material m;
    for (const ColourKey &k : kColourKeys) qor::vrml::ExtractColor(block, k.key, k.slot(m), k.count);
    return m;
}

}  // namespace

void VRMLModel::Parse(std::string_view text) {
    vertices.clear();
    faces.clear();
    std::size_t position = 0;
    std::int32_t base = 0;
    // Each list item asks for the next "]" and the next separator; the finders
    // remember the answers, so a list costs one pass, not one pass per item.
    Finder closeBracket(text, "]"), comma(text, ","), polygonEnd(text, "-1");
    for (;;) {
        if (ExtractString(text, position, "Material {").empty()) return;
        const std::string_view block = ExtractString(text, position, "}");
        if (block.empty()) return;
        const Material material = ReadMaterial(block);
        auto same = std::find(materials.begin(), materials.end(), material);
        if (same == materials.end()) same = materials.insert(materials.end(), material);
        const auto materialIndex = static_cast<std::int32_t>(same - materials.begin());

        if (ExtractString(text, position, "point [").empty()) return;
        std::int32_t count = 0;
        for (bool last = false; !last;) {
            const std::size_t close = closeBracket.From(position);
            const std::size_t separator = comma.From(position);
            // A list with neither a closing bracket nor a comma left is cut
            // short: the read ends instead of adding origins for ever.
            if (close == npos && separator == npos) return;
            last = close < separator;
            const std::string_view token = ExtractString(text, position, last ? "]" : ",");
            Vector3D v;
            qor::vrml::ExtractFloats(token, &v.x, 3);
            vertices.push_back(v);
            ++count;
        }

        if (ExtractString(text, position, "coordIndex [").empty()) return;
        for (;;) {
            // Blanks, line ends, commas, minus signs and bytes of 128 and up
            // all fall below "0" as signed chars.
            while (position < text.size() && static_cast<signed char>(text[position]) < '0') ++position;
            const std::size_t close = closeBracket.From(position);
            const std::size_t end = polygonEnd.From(position);
            if (close < end) break;
            if (end == npos) return;  // no "]" and no "-1": an index list cut short
            const std::string_view polygon = ExtractString(text, position, "-1");
            std::size_t at = 0;
            std::int32_t index[3];
            for (std::int32_t &i : index) {
                // Wrapping addition, as the 32-bit original's int did.
                i = static_cast<std::int32_t>(static_cast<std::uint32_t>(qor::vrml::ToInt(ExtractString(polygon, at, ","))) +
                                              static_cast<std::uint32_t>(base));
            }
            faces.push_back({index[0], index[1], index[2], materialIndex});
        }
        base = static_cast<std::int32_t>(static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(count));
    }
}
