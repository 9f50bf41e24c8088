#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <ctime>
#include <functional>

namespace bench {

// Of the whole process, as the library's own column counts it.
inline double Processor_Ms() {
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

inline double Wall_Ms() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Runs the work and its reference in turns, so that both meet the machine in the same state; only the work
// is on the library's clock. What must be made ready before each turn is nobody's. Gives the work's mean, by
// the clock that is handed in.
template<class Work, class Reference>
double Measure_Beside(
    benchmark::State& state, const Work& work, const Reference& reference,
    double (*clock_ms)() = Processor_Ms, const std::function<void()>& make_ready = [] {}) {
    double work_ms = 0;
    double slowest_ms = 0;
    double plain_ms = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        make_ready();
        state.ResumeTiming();
        const double start = clock_ms();
        work();
        const double worked = clock_ms();
        state.PauseTiming();
        reference();
        plain_ms += clock_ms() - worked;
        work_ms += worked - start;
        slowest_ms = std::max(slowest_ms, worked - start);
        state.ResumeTiming();
    }
    state.counters["slowest_ms"] = slowest_ms;
    state.counters["plain_ms"] = benchmark::Counter(plain_ms, benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = work_ms / plain_ms;
    return work_ms / static_cast<double>(state.iterations());
}

} // namespace bench
