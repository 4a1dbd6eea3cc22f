// What every benchmark program here needs besides its cases: a reporter that
// keeps each case's best time, so the program can print its ratios to its
// peers after Google Benchmark's table, and the timed loop of a pair.
//
// "Best" is the least time per iteration over the repetitions (and over a
// "min" aggregate where a case reports aggregates only): the run least
// disturbed by the other work of a shared machine. CPU time is the steadier
// measure; wall time is kept for the cases that wait on a device or a disk.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace bench {

class BestTimes : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            const bool measured = run.run_type == Run::RT_Iteration
                                      ? run.iterations > 0
                                      : run.aggregate_name == "min";
            if (run.error_occurred || !measured) continue;
            const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
            Keep(cpu_, Key(run), run.GetAdjustedCPUTime() / unit);
            Keep(wall_, Key(run), run.GetAdjustedRealTime() / unit);
        }
    }

    // Seconds per iteration of the case "name" (a benchmark's name, or with
    // its arguments "name/arg"); the first "name/..." when only arguments
    // tell the cases apart; 0 when the case did not run (filtered out).
    double Cpu(const std::string &name) const { return Find(cpu_, name); }
    double Wall(const std::string &name) const { return Find(wall_, name); }

    // ours / peer, or 0 when either did not run.
    double CpuRatio(const std::string &ours, const std::string &peer) const {
        return Ratio(Cpu(ours), Cpu(peer));
    }
    double WallRatio(const std::string &ours, const std::string &peer) const {
        return Ratio(Wall(ours), Wall(peer));
    }
    static double Ratio(double a, double b) { return a > 0 && b > 0 ? a / b : 0.0; }

    // For the programs that name their pairs "<Case>Generic" and
    // "<Case>ByHand": one line per pair that ran, generic / by hand.
    void PrintPairs(const char *title, double goal) const {
        std::printf("\n%s, CPU time (goal: at most %.2f)\n", title, goal);
        for (const auto &[name, generic] : cpu_) {
            const std::size_t at = name.rfind("Generic");
            if (at == std::string::npos) continue;
            const double ratio = Ratio(generic, Cpu(name.substr(0, at) + "ByHand" + name.substr(at + 7)));
            if (ratio > 0) std::printf("  %-28s %.3f\n", name.c_str(), ratio);
        }
    }

private:
    using Times = std::map<std::string, double>;

    static std::string Key(const Run &run) {
        const std::string &args = run.run_name.args;
        return args.empty() ? run.run_name.function_name : run.run_name.function_name + "/" + args;
    }
    static void Keep(Times &times, const std::string &key, double seconds) {
        auto [it, fresh] = times.emplace(key, seconds);
        if (!fresh) it->second = std::min(it->second, seconds);
    }
    static double Find(const Times &times, const std::string &name) {
        if (auto it = times.find(name); it != times.end()) return it->second;
        auto it = times.lower_bound(name + "/");
        return it != times.end() && it->first.compare(0, name.size() + 1, name + "/") == 0 ? it->second : 0.0;
    }

    Times cpu_, wall_;
};

// One timed loop of a pair: the input is built once, the work runs on it
// each time.
template <auto MakeInput, auto Work>
void Loop(benchmark::State &state) {
    const auto input = MakeInput();
    for (auto _ : state) benchmark::DoNotOptimize(Work(input));
    state.SetItemsProcessed(state.iterations());
}

// Registers, runs and reports: the start of every program's main.
inline void RunAll(int &argc, char **argv, BestTimes &times) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(&times);
    benchmark::Shutdown();
}

}  // namespace bench
