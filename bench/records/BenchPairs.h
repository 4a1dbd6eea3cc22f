// Benchmarks in pairs: the library's way against a hand-written peer doing
// the same work, named "<Case>Generic" and "<Case>ByHand", and a reporter
// that prints each pair's ratio after the usual table.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace bench {

// One timed loop: the input is built once, the work runs on it each time.
template <auto MakeInput, auto Work>
void Loop(benchmark::State &state) {
    const auto input = MakeInput();
    for (auto _ : state) benchmark::DoNotOptimize(Work(input));
    state.SetItemsProcessed(state.iterations());
}

// Keeps each run's time to print the ratios of the pairs at the end.

class RatioReporter : public benchmark::ConsoleReporter {
public:
    // CPU time is steadier than wall time on a shared machine.
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration) seconds_[run.benchmark_name()] = run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatios(const char *title, double goal) const {
        std::printf("\n%s, CPU time (goal: at most %.2f)\n", title, goal);
        for (const auto &[name, generic] : seconds_) {
            const std::size_t at = name.rfind("Generic");
            if (at == std::string::npos) continue;
            const auto peer = seconds_.find(name.substr(0, at) + "ByHand" + name.substr(at + 7));
            if (peer == seconds_.end()) continue;
            std::printf("  %-28s %.3f\n", name.c_str(), generic / peer->second);
        }
    }

private:
    std::map<std::string, double> seconds_;
};

}  // namespace bench
