// CRC-32 speed: CRC_32 against zlib's crc32 on the same buffer, and the
// threaded job that posts progress against the plain call on the calling
// thread. Prints both ratios.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "qor/host/CRC_32.h"
#include "support/BenchTimes.h"
#include "qor/platform/Waitable.h"

namespace {

constexpr std::size_t kBufferSize = 64u << 20;  // 64 MiB: 656 progress blocks

const std::vector<unsigned char> &Buffer() {
    static const std::vector<unsigned char> buffer = [] {
        std::vector<unsigned char> bytes(kBufferSize);
        std::mt19937_64 random(42);
        for (std::size_t i = 0; i + 8 <= bytes.size(); i += 8) {
            std::uint64_t v = random();
            std::memcpy(bytes.data() + i, &v, 8);
        }
        return bytes;
    }();
    return buffer;
}

// A target that is live only for the question CalcCRC asks before it starts
// the thread: the job then runs on its thread exactly as with progress, but
// posts nothing. The peer that isolates what posting costs.
class SilentTarget : public qor::ProgressTarget {
public:
    bool IsLive() const override { return asked_++ == 0; }
    void Post(unsigned, std::uintptr_t, std::intptr_t) override {}

private:
    mutable std::atomic<int> asked_{0};
};

// A live target that takes the messages as a progress bar would: it keeps
// the position and the result.
class CountingTarget : public qor::ProgressTarget {
public:
    bool IsLive() const override { return true; }
    void Post(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override {
        if (message == CRC_32::kSetPosition) position = wParam;
        if (message == CRC_32::kDone) result = static_cast<unsigned long>(lParam);
        ++posts;
    }
    std::uintptr_t position = 0;
    unsigned long result = 0;
    unsigned posts = 0;
};

// One threaded job over the buffer, waited for: what a caller with a target sees.
void RunThreadedJob(CRC_32 &crc, qor::ProgressTarget &target) {
    auto &buffer = const_cast<std::vector<unsigned char> &>(Buffer());
    HANDLE thread = reinterpret_cast<HANDLE>(crc.CalcCRC(buffer.data(), static_cast<unsigned>(buffer.size()), &target));
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

void ZlibCrc32(benchmark::State &state) {
    const auto &buffer = Buffer();
    for (auto _ : state) benchmark::DoNotOptimize(crc32_z(0, buffer.data(), buffer.size()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * buffer.size()));
}

void QorCalcCrc(benchmark::State &state) {
    CRC_32 crc;
    auto &buffer = const_cast<std::vector<unsigned char> &>(Buffer());
    for (auto _ : state)
        benchmark::DoNotOptimize(crc.CalcCRC(buffer.data(), static_cast<unsigned>(buffer.size()), nullptr));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * buffer.size()));
}

void QorTableLoop(benchmark::State &state) {
    CRC_32 crc;
    const auto &buffer = Buffer();
    for (auto _ : state) {
        unsigned long value = 0xFFFFFFFF;
        crc.CalculateByTable(buffer.data(), buffer.size(), value);
        benchmark::DoNotOptimize(value);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * buffer.size()));
}

// The whole threaded job as a caller sees it: copy, thread, progress, result.
void QorThreadedWithProgress(benchmark::State &state) {
    CRC_32 crc;
    for (auto _ : state) {
        CountingTarget target;
        RunThreadedJob(crc, target);
        benchmark::DoNotOptimize(target.result);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Buffer().size()));
}

void QorThreadedSilent(benchmark::State &state) {
    CRC_32 crc;
    for (auto _ : state) {
        SilentTarget target;
        RunThreadedJob(crc, target);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Buffer().size()));
}

double ProcessCpuSeconds() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// The posting cost alone: silent and posting jobs run in turns, so that the
// machine's drift falls on both alike, and their CPU times are summed apart.
double gPostingRatio = 0;

void PostingCostInTurns(benchmark::State &state) {
    CRC_32 crc;
    double silent = 0, posting = 0;
    long pairs = 0;
    auto run = [&](qor::ProgressTarget &target) {
        double start = ProcessCpuSeconds();
        RunThreadedJob(crc, target);
        return ProcessCpuSeconds() - start;
    };
    for (auto _ : state) {
        for (int turn = 0; turn < 2; ++turn) {
            SilentTarget quiet;
            CountingTarget counting;
            if ((pairs + turn) % 2) silent += run(quiet);
            else posting += run(counting);
        }
        ++pairs;
    }
    gPostingRatio = posting / silent;
    state.counters["posting/silent"] = gPostingRatio;
}

// Process CPU time counts the worker thread's work too and is steadier than
// wall time on a machine shared with builds.
BENCHMARK(ZlibCrc32)->MeasureProcessCPUTime()->Repetitions(5)->ReportAggregatesOnly(false)->Unit(benchmark::kMillisecond);
BENCHMARK(QorCalcCrc)->MeasureProcessCPUTime()->Repetitions(5)->ReportAggregatesOnly(false)->Unit(benchmark::kMillisecond);
BENCHMARK(QorTableLoop)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(QorThreadedSilent)->MeasureProcessCPUTime()->Repetitions(5)->ReportAggregatesOnly(false)->Unit(benchmark::kMillisecond);
BENCHMARK(QorThreadedWithProgress)->MeasureProcessCPUTime()->Repetitions(5)->ReportAggregatesOnly(false)->Unit(benchmark::kMillisecond);
BENCHMARK(PostingCostInTurns)->MeasureProcessCPUTime()->Iterations(30)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char **argv) {
    CRC_32 crc;
    auto &buffer = const_cast<std::vector<unsigned char> &>(Buffer());
    if (crc.CalcCRC(buffer.data(), static_cast<unsigned>(buffer.size()), nullptr) !=
        crc32_z(0, buffer.data(), buffer.size())) {
        std::fprintf(stderr, "CRC_32 and zlib disagree\n");
        return 1;
    }
    bench::BestTimes times;
    bench::RunAll(argc, argv, times);
    auto ratio = [&](const char *a, const char *b) { return times.CpuRatio(a, b); };
    std::printf("\nthroughput CRC_32::CalcCRC / zlib crc32:          %.3f (goal: at least 0.90)\n",
                ratio("ZlibCrc32", "QorCalcCrc"));
    std::printf("throughput table loop / zlib crc32:               %.3f (for reference)\n",
                ratio("ZlibCrc32", "QorTableLoop"));
    std::printf("cost threaded with progress / threaded silent:    %.3f (goal: at most 1.02; best runs)\n",
                ratio("QorThreadedWithProgress", "QorThreadedSilent"));
    std::printf("the same, jobs in turns:                          %.3f (goal: at most 1.02)\n", gPostingRatio);
    std::printf("cost threaded with progress / plain call:         %.3f (the job's copy of the data and its thread)\n",
                ratio("QorThreadedWithProgress", "QorCalcCrc"));
    return 0;
}
