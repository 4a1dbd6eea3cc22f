// Start-up latencies of the task classes against a raw std::thread in the
// same run:
//   - CThreadPool::StartThread to the job's first instruction, against
//     std::thread construction to the body's first instruction (and against a
//     whole std::thread start and join);
//   - a one-state non-blocking task, LaunchTask to OnTaskCompleted.
// Each iteration's latency is one sample; the medians and their ratios are
// printed at the end.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <cstdio>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "qor/task.h"

namespace {

using Clock = std::chrono::steady_clock;

std::map<std::string, std::vector<double>> &Samples() {
    static std::map<std::string, std::vector<double>> samples;
    return samples;
}

double Microseconds(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::micro>(to - from).count();
}

void Record(benchmark::State &state, const char *name, double microseconds) {
    Samples()[name].push_back(microseconds);
    state.SetIterationTime(microseconds / 1e6);
}

double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void BM_StdThreadToFirstInstruction(benchmark::State &state) {
    for (auto _ : state) {
        Clock::time_point entered;
        const auto start = Clock::now();
        std::thread thread([&] { entered = Clock::now(); });
        thread.join();
        Record(state, "thread-first", Microseconds(start, entered));
    }
}
BENCHMARK(BM_StdThreadToFirstInstruction)->UseManualTime()->Iterations(2000);

void BM_StdThreadStartAndJoin(benchmark::State &state) {
    for (auto _ : state) {
        const auto start = Clock::now();
        std::thread thread([] { benchmark::ClobberMemory(); });
        thread.join();
        Record(state, "thread-join", Microseconds(start, Clock::now()));
    }
}
BENCHMARK(BM_StdThreadStartAndJoin)->UseManualTime()->Iterations(2000);

// The floor under any pool: hand a job to a parked std::thread through a
// mutex and condition variable, measured to the job's first instruction.
void BM_ConditionVariableHandOff(benchmark::State &state) {
    const bool parked = state.range(0) != 0;
    std::mutex lock;
    std::condition_variable wake, done;
    bool pending = false, finished = false, quit = false;
    Clock::time_point entered;
    std::thread worker([&] {
        std::unique_lock<std::mutex> hold(lock);
        for (;;) {
            wake.wait(hold, [&] { return pending || quit; });
            if (quit) return;
            entered = Clock::now();
            pending = false;
            finished = true;
            done.notify_one();
        }
    });
    for (auto _ : state) {
        if (parked) std::this_thread::sleep_for(std::chrono::microseconds(300));
        const auto start = Clock::now();
        {
            std::lock_guard<std::mutex> hold(lock);
            pending = true;
        }
        wake.notify_one();
        std::unique_lock<std::mutex> hold(lock);
        done.wait(hold, [&] { return finished; });
        finished = false;
        Record(state, parked ? "cv-parked" : "cv-first", Microseconds(start, entered));
    }
    {
        std::lock_guard<std::mutex> hold(lock);
        quit = true;
    }
    wake.notify_one();
    worker.join();
}
BENCHMARK(BM_ConditionVariableHandOff)->Arg(0)->UseManualTime()->Iterations(2000);
BENCHMARK(BM_ConditionVariableHandOff)->Arg(1)->UseManualTime()->Iterations(1000);

struct TimedJob {
    Clock::time_point entered;
    static unsigned Run(void *argument) {
        static_cast<TimedJob *>(argument)->entered = Clock::now();
        return 0;
    }
};

void BM_PoolStartThreadToFirstInstruction(benchmark::State &state) {
    CThreadPool pool(1, 1, false);
    TimedJob job;
    for (auto _ : state) {
        const auto start = Clock::now();
        HANDLE finished = pool.StartThread(TimedJob::Run, &job, false);
        WaitForSingleObject(finished, INFINITE);
        CloseHandle(finished);
        Record(state, "pool-first", Microseconds(start, job.entered));
    }
}
BENCHMARK(BM_PoolStartThreadToFirstInstruction)->UseManualTime()->Iterations(2000);

// The same with the worker surely parked: each job comes a while after the last.
void BM_PoolStartThreadToParkedWorker(benchmark::State &state) {
    CThreadPool pool(1, 1, false);
    TimedJob job;
    for (auto _ : state) {
        std::this_thread::sleep_for(std::chrono::microseconds(300));
        const auto start = Clock::now();
        HANDLE finished = pool.StartThread(TimedJob::Run, &job, false);
        WaitForSingleObject(finished, INFINITE);
        CloseHandle(finished);
        Record(state, "pool-parked", Microseconds(start, job.entered));
    }
}
BENCHMARK(BM_PoolStartThreadToParkedWorker)->UseManualTime()->Iterations(1000);

class OneStepTask : public CStateMachineTask {
public:
    explicit OneStepTask(HANDLE destroyed) : destroyed(destroyed) {}
    ~OneStepTask() override { SetEvent(destroyed); }
    bool FirstState() override {
        currentState = nullptr;
        return true;
    }
    void OnNonBlockingFinish() override {}

private:
    HANDLE destroyed;
};

class BenchMachine : public CStateMachine {
public:
    void ReservedOperation() override {}
    void ReportError(const std::string &) override {}
    void OnUserAbort() override {}
};

class CompletionClock : public CStateMachineListener {
public:
    CompletionClock() : completed(CreateEvent(nullptr, FALSE, FALSE, nullptr)) {}
    ~CompletionClock() { CloseHandle(completed); }
    void OnTaskCompleted() override {
        at = Clock::now();
        SetEvent(completed);
    }
    void OnTaskAborted() override {}
    void OnTaskMessage(std::string, long) override {}
    void OnTaskError(long, const std::string &) override {}
    Clock::time_point at;
    HANDLE completed;
};

void BM_LaunchTaskToCompleted(benchmark::State &state) {
    BenchMachine machine;
    CompletionClock listener;
    machine.SetListener(&listener);
    HANDLE destroyed = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    for (auto _ : state) {
        const auto start = Clock::now();
        machine.LaunchTask(new OneStepTask(destroyed), false, true);
        WaitForSingleObject(listener.completed, INFINITE);
        const double latency = Microseconds(start, listener.at);
        // The worker is free again once it has destroyed the task.
        WaitForSingleObject(destroyed, INFINITE);
        Record(state, "launch-completed", latency);
    }
    CloseHandle(destroyed);
}
BENCHMARK(BM_LaunchTaskToCompleted)->UseManualTime()->Iterations(2000);

}  // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    const double threadFirst = Median(Samples()["thread-first"]);
    const double threadJoin = Median(Samples()["thread-join"]);
    const double poolFirst = Median(Samples()["pool-first"]);
    const double handOff = Median(Samples()["cv-first"]);
    const double poolParked = Median(Samples()["pool-parked"]);
    const double handOffParked = Median(Samples()["cv-parked"]);
    const double launch = Median(Samples()["launch-completed"]);
    if (threadFirst > 0 && poolFirst > 0) {
        std::printf("median std::thread start to first instruction %.1f us, start and join %.1f us\n",
                    threadFirst, threadJoin);
        std::printf("median CThreadPool::StartThread to first instruction %.1f us (goal <= 50); "
                    "ratio thread/pool %.2f (goal >= 5), thread start+join/pool %.2f\n",
                    poolFirst, threadFirst / poolFirst, threadJoin / poolFirst);
        std::printf("median hand-off to a parked std::thread by condition variable %.1f us; ratio pool/hand-off %.2f\n",
                    handOff, poolFirst / handOff);
        std::printf("median CThreadPool::StartThread to a parked worker's first instruction %.1f us; "
                    "ratio thread/pool %.2f, thread start+join/pool %.2f\n",
                    poolParked, threadFirst / poolParked, threadJoin / poolParked);
        std::printf("median hand-off to a parked std::thread after 300 us idle %.1f us; ratio pool/hand-off %.2f\n",
                    handOffParked, poolParked / handOffParked);
    }
    if (launch > 0 && threadJoin > 0)
        std::printf("median LaunchTask to OnTaskCompleted, one-state non-blocking task %.1f us (goal <= 200); "
                    "ratio to a std::thread start and join %.2f\n",
                    launch, launch / threadJoin);
    return 0;
}
