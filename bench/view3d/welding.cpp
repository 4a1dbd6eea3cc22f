// Welding an unwelded triangle soup of 10^4, 10^5 and 10^6 vertices: our
// spatial hash against meshoptimizer's exact vertex remap (goal: within 3x)
// and the literal quadratic scan at 10^4; growth from 10^5 to 10^6 (goal: at
// most 12x).
#include <meshoptimizer.h>

#include "BenchSupport.h"

namespace {

// Every triangle with its own three corners, as a file that repeats shared
// corners reads: each position stands about six times.
std::vector<Vector3D> Soup(std::size_t count) {
    const view_bench::Mesh mesh = view_bench::Sphere(count / 3 + 64);
    std::vector<Vector3D> soup;
    soup.reserve(count);
    for (const Face &f : mesh.faces) {
        for (int v : {f.first, f.second, f.third})
            if (soup.size() < count) soup.push_back(mesh.vertices[static_cast<std::size_t>(v)]);
    }
    return soup;
}

const std::vector<Vector3D> &Cloud(std::int64_t count) {
    static std::map<std::int64_t, std::vector<Vector3D>> clouds;
    auto &cloud = clouds[count];
    if (cloud.empty()) cloud = Soup(static_cast<std::size_t>(count));
    return cloud;
}

void Ours(benchmark::State &state) {
    const auto &cloud = Cloud(state.range(0));
    std::size_t kept = 0;
    for (auto _ : state) kept = qor::WeldVertices(cloud, 0.001).vertices.size();
    state.counters["kept"] = static_cast<double>(kept);
}

void Meshopt(benchmark::State &state) {
    const auto &cloud = Cloud(state.range(0));
    std::vector<unsigned> remap(cloud.size());
    std::size_t kept = 0;
    for (auto _ : state) {
        kept = meshopt_generateVertexRemap(remap.data(), nullptr, cloud.size(), cloud.data(), cloud.size(),
                                           sizeof(Vector3D));
        benchmark::DoNotOptimize(remap.data());
    }
    state.counters["kept"] = static_cast<double>(kept);
}

void LiteralScan(benchmark::State &state) {
    const auto &cloud = Cloud(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(qor::WeldVerticesByScan(cloud, 0.001).remap.data());
}

}  // namespace

int main(int argc, char **argv) {
    for (std::int64_t n : {10000, 100000, 1000000}) {
        view_bench::Measured(benchmark::RegisterBenchmark("qor/WeldVertices", Ours)->Arg(n));
        view_bench::Measured(benchmark::RegisterBenchmark("meshopt/generateVertexRemap", Meshopt)->Arg(n));
    }
    view_bench::Measured(benchmark::RegisterBenchmark("literal/scan", LiteralScan)->Arg(10000), 0.2);
    benchmark::Initialize(&argc, argv);
    view_bench::BestTimes reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    auto t = [&](const char *name, int n) { return reporter.Cpu(std::string(name) + "/" + std::to_string(n)); };
    std::printf("\nWelding (below 1: slower than the peer)\n");
    for (int n : {10000, 100000, 1000000})
        std::printf("  %7d vertices: %.2f x meshoptimizer's exact remap (goal >= 0.33)\n", n,
                    view_bench::Ratio(t("meshopt/generateVertexRemap", n), t("qor/WeldVertices", n)));
    std::printf("  10000 vertices: %.1f x the literal scan\n",
                view_bench::Ratio(t("literal/scan", 10000), t("qor/WeldVertices", 10000)));
    std::printf("  growth from 10^5 to 10^6: %.2f (goal <= 12; meshoptimizer %.2f)\n",
                view_bench::Ratio(t("qor/WeldVertices", 1000000), t("qor/WeldVertices", 100000)),
                view_bench::Ratio(t("meshopt/generateVertexRemap", 1000000), t("meshopt/generateVertexRemap", 100000)));
    return 0;
}
