#include "qor/view3d/ModelFiles.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "qor/xml/XMLParserException.h"
#include "qor/xml/XMLReader.h"

namespace qor {
namespace {

bool EndsWith(std::string text, const std::string &suffix) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text.size() >= suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

bool Readable(const std::string &path, std::string &error) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) {
        error = path + ": no such file";
        return false;
    }
    if (!std::ifstream(path)) {
        error = path + ": cannot be opened for reading";
        return false;
    }
    return true;
}

std::string Attribute(const XMLParser::XMLNode &node, const char *key, const char *fallback = "") {
    auto it = node.attributes.find(key);
    return it == node.attributes.end() ? fallback : it->second;
}

// Three numbers of an attribute such as "0 0.5 0"; absent ones keep fallback.
Vector3D Triple(const std::string &text, Vector3D fallback) {
    std::istringstream in(text);
    in >> fallback.x >> fallback.y >> fallback.z;
    return fallback;
}

float Number(const std::string &text, float fallback = 0) {
    std::istringstream in(text);
    in >> fallback;
    return fallback;
}

// A 4x4 column-major transform of the placement ExecuteTransforms applies.
struct Placement {
    float m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    Placement Then(float tx, float ty, float tz, float degrees) const {
        // this * T * Ry
        const double r = degrees * M_PI / 180.0;
        const float c = static_cast<float>(std::cos(r)), s = static_cast<float>(std::sin(r));
        const float local[16] = {c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, tx, ty, tz, 1};
        Placement out;
        for (int col = 0; col < 4; ++col)
            for (int row = 0; row < 4; ++row) {
                float sum = 0;
                for (int k = 0; k < 4; ++k) sum += m[k * 4 + row] * local[col * 4 + k];
                out.m[col * 4 + row] = sum;
            }
        return out;
    }
    Vector3D Apply(const Vector3D &p) const {
        return {m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12], m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
                m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14]};
    }
};

void AddPlaced(const VRMLModel &model, const Placement &parent, Bounds &bounds, std::set<const VRMLModel *> &seen) {
    if (!seen.insert(&model).second) return;
    const Vector3D t = model.GetTranslation(), o = model.GetMateOffset();
    const Placement here = parent.Then(t.x + o.x, t.y + o.y, t.z + o.z, model.GetRotation() + model.GetMateRotation());
    const Bounds own = ModelBounds(model);
    if (!own.Empty()) {
        for (int corner = 0; corner < 8; ++corner) {
            bounds.Add(here.Apply({corner & 1 ? own.max.x : own.min.x, corner & 2 ? own.max.y : own.min.y,
                                   corner & 4 ? own.max.z : own.min.z}));
        }
    }
    for (const VRMLModel *mate : model.GetMates()) AddPlaced(*mate, here, bounds, seen);
    seen.erase(&model);
}

}  // namespace

ModelFileKind KindOfModelFile(const std::string &path) {
    if (EndsWith(path, ".bin")) return ModelFileKind::Binary;
    if (EndsWith(path, ".xml")) return ModelFileKind::Assembly;
    return ModelFileKind::Vrml;
}

bool LoadModelFile(VRMLModel &model, const std::string &path, bool optimize, std::string &error) {
    if (!Readable(path, error)) return false;
    if (KindOfModelFile(path) == ModelFileKind::Binary) {
        if (model.OpenBinaryFile(path, optimize)) return true;
        error = path + ": not a binary model (cut short, or not writable as the format requires)";
        return false;
    }
    if (KindOfModelFile(path) == ModelFileKind::Assembly) {
        error = path + ": an assembly, not a single model";
        return false;
    }
    if (model.OpenFile(path, optimize)) return true;
    error = path + ": cannot be opened for reading";
    return false;
}

bool LoadAssembly(QorOpenGlModel &view, const std::string &path, std::string &error, int idBase) {
    if (KindOfModelFile(path) != ModelFileKind::Assembly) {
        const std::string name = std::filesystem::path(path).stem().string();
        auto model = std::make_unique<VRMLModel>(name, 0.0f, idBase + 1);
        if (!LoadModelFile(*model, path, false, error)) return false;
        view.StoreModel(name, std::move(model));
        view.rootModelName = name;
        return true;
    }
    if (!Readable(path, error)) return false;
    XMLReader reader;
    try {
        reader.Read(path.c_str());
    } catch (const XMLParserException &e) {
        error = path + ": " + e.message;
        return false;
    }
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    auto missing = [&](const std::string &name) {
        if (view.HasModel(name)) return false;
        error = path + ": no part named \"" + name + "\"";
        return true;
    };
    for (const XMLParser::XMLNode &node : reader.children) {
        if (node.name == "Part") {
            const std::string name = Attribute(node, "Name");
            auto model = std::make_unique<VRMLModel>(name, Number(Attribute(node, "Rotation")),
                                                     idBase + static_cast<int>(Number(Attribute(node, "Id"))));
            const std::string file = (folder / Attribute(node, "File")).string();
            if (!LoadModelFile(*model, file, Attribute(node, "Optimize") == "1", error)) return false;
            view.StoreModel(name, std::move(model));
        } else if (node.name == "Mate") {
            const std::string parent = Attribute(node, "Parent"), child = Attribute(node, "Child");
            if (missing(parent) || missing(child)) return false;
            view.AddMate(parent, child, Number(Attribute(node, "Rotation")), Number(Attribute(node, "X")),
                         Number(Attribute(node, "Y")), Number(Attribute(node, "Z")));
        } else if (node.name == "Place") {
            const std::string name = Attribute(node, "Name");
            if (missing(name)) return false;
            VRMLModel &m = view.GetModel(name);
            const Vector3D t = Triple(Attribute(node, "Translate"), {});
            const Vector3D s = Triple(Attribute(node, "Scale"), {1, 1, 1});
            m.Translate(t.x, t.y, t.z);
            m.Scale(s.x, s.y, s.z);
            m.Rotate(Number(Attribute(node, "Rotate")));
        }
    }
    view.rootModelName = Attribute(reader, "Root");
    if (missing(view.rootModelName)) return false;
    return true;
}

void Bounds::Add(const Vector3D &p) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) return;
    if (Empty()) {
        min = max = p;
        return;
    }
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
}

Bounds ModelBounds(const VRMLModel &model) {
    Bounds bounds;
    const auto &v = model.GetVertices();
    const Vector3D s = model.GetScale();
    for (const Face &f : model.GetFaces()) {
        for (std::int32_t i : {f.first, f.second, f.third}) {
            if (i < 0 || static_cast<std::size_t>(i) >= v.size()) continue;
            const Vector3D &p = v[static_cast<std::size_t>(i)];
            bounds.Add({p.x * s.x, p.y * s.y, p.z * s.z});
        }
    }
    return bounds;
}

Bounds PlacedBounds(const VRMLModel &root) {
    Bounds bounds;
    std::set<const VRMLModel *> seen;
    AddPlaced(root, Placement{}, bounds, seen);
    return bounds;
}

FaceProblems CheckFaces(const Model &model) {
    FaceProblems problems;
    const std::size_t vertices = model.GetVertices().size(), materials = model.GetMaterials().size();
    auto bad = [](std::int32_t i, std::size_t size) { return i < 0 || static_cast<std::size_t>(i) >= size; };
    for (const Face &f : model.GetFaces()) {
        if (bad(f.first, vertices) || bad(f.second, vertices) || bad(f.third, vertices)) ++problems.missingVertices;
        if (bad(f.material, materials)) ++problems.missingMaterials;
    }
    return problems;
}

}  // namespace qor
