// Prints, after the usual table, each benchmark's CPU time over its peer's:
// benchmarks come in pairs named "<Case>Generic" and "<Case>ByHand".
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace bench {

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
