// What the 3-D view's benchmarks share: the measuring of a case against
// its peers, and test meshes made in memory.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "qor/view3d.h"
#include "support/BenchTimes.h"

namespace view_bench {

using bench::BestTimes;
inline double Ratio(double a, double b) { return BestTimes::Ratio(a, b); }

inline benchmark::internal::Benchmark *Measured(benchmark::internal::Benchmark *b, double minTime = 0.5) {
    return b->Unit(benchmark::kMillisecond)
        ->MinTime(minTime)
        ->Repetitions(3)
        ->ComputeStatistics("min", [](const std::vector<double> &v) { return *std::min_element(v.begin(), v.end()); })
        ->DisplayAggregatesOnly(true);
}

// A sphere of about `triangles` triangles as a grid of latitude and
// longitude lines: the vertices, and the faces over them in `shapes` runs
// of one material each.
struct Mesh {
    std::vector<Vector3D> vertices;
    std::vector<Face> faces;
};
inline Mesh Sphere(std::size_t triangles, int shapes = 1) {
    const int n = static_cast<int>(std::sqrt(static_cast<double>(triangles) / 2)) + 1;
    Mesh mesh;
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= n; ++j) {
            const double lat = M_PI * i / n - M_PI / 2, lon = 2 * M_PI * j / n;
            mesh.vertices.push_back({static_cast<float>(0.8 * std::cos(lat) * std::cos(lon)),
                                     static_cast<float>(0.8 * std::sin(lat)),
                                     static_cast<float>(0.8 * std::cos(lat) * std::sin(lon))});
        }
    const std::size_t total = 2 * static_cast<std::size_t>(n) * n;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const int a = i * (n + 1) + j, b = a + 1, c = a + n + 1, d = c + 1;
            const auto material = static_cast<std::int32_t>(mesh.faces.size() * shapes / total);
            mesh.faces.push_back({a, c, b, material});
            mesh.faces.push_back({b, c, d, material});
        }
    return mesh;
}

}  // namespace view_bench
