// Reading a VRML file of about 100,000 triangles: our token walk against
// Coin3D reading the same file into its scene graph. Prints the ratio (goal:
// ours at least 3 times faster).
#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoSeparator.h>

#include <filesystem>
#include <fstream>

#include "BenchSupport.h"

namespace {

// The file as exporters write the subset: shapes of triangles, a material
// each, points and indices separated by commas.
std::string WriteFile() {
    const view_bench::Mesh mesh = view_bench::Sphere(100000, 4);
    const std::string path = (std::filesystem::temp_directory_path() / "qor-bench-100k.wrl").string();
    std::ofstream out(path);
    out << "#VRML V2.0 utf8\n";
    char line[128];
    for (std::size_t begin = 0; begin < mesh.faces.size();) {
        std::size_t end = begin;
        while (end < mesh.faces.size() && mesh.faces[end].material == mesh.faces[begin].material) ++end;
        // Each shape lists the points its faces use, in the order first used.
        std::map<int, int> local;
        std::string points, indices;
        for (std::size_t f = begin; f < end; ++f) {
            for (int v : {mesh.faces[f].first, mesh.faces[f].second, mesh.faces[f].third}) {
                auto [it, added] = local.emplace(v, static_cast<int>(local.size()));
                if (added) {
                    const Vector3D &p = mesh.vertices[static_cast<std::size_t>(v)];
                    std::snprintf(line, sizeof line, "%s%.6g %.6g %.6g", local.size() > 1 ? ", " : "", p.x, p.y, p.z);
                    points += line;
                }
                indices += std::to_string(it->second) + ", ";
            }
            indices += "-1,\n";
        }
        out << "Shape {\n appearance Appearance { material Material { diffuseColor 0.8 0." << begin % 10
            << " 0.2 } }\n geometry IndexedFaceSet {\n  coord Coordinate { point [\n" << points
            << " ] }\n  coordIndex [\n" << indices << " ]\n }\n}\n";
        begin = end;
    }
    return path;
}

const std::string &File() {
    static const std::string path = WriteFile();
    return path;
}

void Ours(benchmark::State &state) {
    std::size_t faces = 0;
    for (auto _ : state) {
        VRMLModel model;
        model.OpenFile(File(), false);
        faces = model.GetFaces().size();
    }
    state.counters["triangles"] = static_cast<double>(faces);
}

void Coin(benchmark::State &state) {
    for (auto _ : state) {
        SoInput input;
        if (!input.openFile(File().c_str())) {
            state.SkipWithError("Coin cannot open the file");
            return;
        }
        SoSeparator *root = SoDB::readAll(&input);
        if (!root) {
            state.SkipWithError("Coin cannot read the file");
            return;
        }
        root->ref();
        root->unref();
    }
}

}  // namespace

int main(int argc, char **argv) {
    SoDB::init();
    std::printf("file: %s, %.1f MB\n", File().c_str(), std::filesystem::file_size(File()) / 1048576.0);
    view_bench::Measured(benchmark::RegisterBenchmark("qor/VRMLModel::OpenFile", Ours));
    view_bench::Measured(benchmark::RegisterBenchmark("coin/SoDB::readAll", Coin));
    benchmark::Initialize(&argc, argv);
    view_bench::BestTimes reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nVRML loading, about 100,000 triangles: qor is %.2f x as fast as Coin3D (goal >= 3)\n",
                view_bench::Ratio(reporter.Cpu("coin/SoDB::readAll"), reporter.Cpu("qor/VRMLModel::OpenFile")));
    std::filesystem::remove(File());
    return 0;
}
