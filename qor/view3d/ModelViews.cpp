// Framing and writing models for programs that show or convert them.
#include <cmath>
#include <cstdio>
#include <unordered_map>

#include "qor/view3d/ModelFiles.h"

namespace qor {
namespace {

using Matrix = std::array<float, 16>;

Matrix Multiply(const Matrix &a, const Matrix &b) {
    Matrix out{};
    for (int col = 0; col < 4; ++col)
        for (int row = 0; row < 4; ++row)
            for (int k = 0; k < 4; ++k) out[col * 4 + row] += a[k * 4 + row] * b[col * 4 + k];
    return out;
}

Matrix Turn(float degrees, int axis) {
    const double r = degrees * M_PI / 180.0;
    const float c = static_cast<float>(std::cos(r)), s = static_cast<float>(std::sin(r));
    if (axis == 0) return {1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1};
    return {c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1};
}

void Append(std::string &text, const char *format, double a, double b, double c) {
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, format, a, b, c);
    text += buffer;
}

void AppendMaterial(std::string &text, const Material &m) {
    text += "  Shape {\n    appearance Appearance {\n      material Material {\n";
    // Nine significant digits bring every float back unchanged.
    Append(text, "        ambientColor %.9g %.9g %.9g\n", m.ambient[0], m.ambient[1], m.ambient[2]);
    Append(text, "        diffuseColor %.9g %.9g %.9g\n", m.diffuse[0], m.diffuse[1], m.diffuse[2]);
    Append(text, "        emissiveColor %.9g %.9g %.9g\n", m.emissive[0], m.emissive[1], m.emissive[2]);
    Append(text, "        specularColor %.9g %.9g %.9g\n", m.specular[0], m.specular[1], m.specular[2]);
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, "        shininess %.9g\n        transparency %.9g\n", m.shininess,
                  m.transparency);
    text += buffer;
    text += "      }\n    }\n";
}

}  // namespace

const NamedView kNamedViews[7] = {{"front", 0, 0},   {"back", 0, 180}, {"left", 0, 90},  {"right", 0, -90},
                                  {"top", -90, 0},   {"bottom", 90, 0}, {"iso", -30, -35}};

const NamedView *FindNamedView(const std::string &name) {
    for (const NamedView &view : kNamedViews)
        if (name == view.name) return &view;
    return nullptr;
}

Matrix FitScene(const Bounds &bounds, float turnX, float turnY) {
    Matrix fit{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    if (!bounds.Empty()) {
        const float dx = bounds.max.x - bounds.min.x, dy = bounds.max.y - bounds.min.y,
                    dz = bounds.max.z - bounds.min.z;
        const float diagonal = std::sqrt(dx * dx + dy * dy + dz * dz);
        const float k = diagonal > 0 ? 1.9f / diagonal : 1.0f;
        fit = {k, 0, 0, 0, 0, k, 0, 0, 0, 0, k, 0,
               -k * (bounds.min.x + bounds.max.x) / 2, -k * (bounds.min.y + bounds.max.y) / 2,
               -k * (bounds.min.z + bounds.max.z) / 2, 1};
    }
    return Multiply(Multiply(Turn(turnX, 0), Turn(turnY, 1)), fit);
}

bool WriteVrml(const Model &model, std::string &text, std::string &error) {
    const FaceProblems problems = CheckFaces(model);
    if (problems.missingVertices || problems.missingMaterials) {
        error = "faces that name missing vertices or materials cannot be written as VRML";
        return false;
    }
    const auto &vertices = model.GetVertices();
    const auto &faces = model.GetFaces();
    text = "#VRML V2.0 utf8\nGroup { children [\n";
    for (std::size_t begin = 0; begin < faces.size();) {
        std::size_t end = begin;
        while (end < faces.size() && faces[end].material == faces[begin].material) ++end;
        AppendMaterial(text, model.GetMaterials()[static_cast<std::size_t>(faces[begin].material)]);
        // The shape's own points, in the order its faces first use them.
        std::unordered_map<std::int32_t, std::int32_t> local;
        std::string points, indices;
        for (std::size_t f = begin; f < end; ++f) {
            for (std::int32_t v : {faces[f].first, faces[f].second, faces[f].third}) {
                auto [it, added] = local.emplace(v, static_cast<std::int32_t>(local.size()));
                if (added) {
                    const Vector3D &p = vertices[static_cast<std::size_t>(v)];
                    Append(points, "        %.9g %.9g %.9g,\n", p.x, p.y, p.z);
                }
                indices += std::to_string(it->second) + ", ";
            }
            indices += "-1,\n        ";
        }
        points.resize(points.size() - 2);  // no comma after the last point: it would add an origin
        text += "    geometry IndexedFaceSet {\n      coord Coordinate { point [\n" + points +
                "\n      ] }\n      coordIndex [\n        " + indices + "]\n    }\n  }\n";
        begin = end;
    }
    text += "] }\n";
    return true;
}

}  // namespace qor
