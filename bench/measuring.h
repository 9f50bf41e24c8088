#pragma once

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// Of the whole process, as the library's own column counts it.
inline double Processor_Ms() {
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

inline double Wall_Ms() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// The one in the middle; a disk or a machine that stalls once can't move it.
inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// What a line was to keep is its label, with a NOT where it didn't; that fails nothing, as the machine may be
// busy with other things.
inline std::string Limit_Kept(bool kept, const std::string& limit) {
    return (kept ? "" : "NOT ") + limit;
}

// `most_ms` is a time that a teacher doesn't notice.
inline std::string Limit_Below(double mean_ms, double most_ms) {
    return Limit_Kept(mean_ms < most_ms, "below " + std::to_string(static_cast<int>(most_ms)) + " ms");
}

// The median turn of the work in those of the reference.
inline std::string Limit_At_Most(const benchmark::State& state, double most_times) {
    std::array<char, 32> most{};
    std::snprintf(most.data(), most.size(), "at most %g times", most_times);
    return Limit_Kept(state.counters.at("median_ratio").value <= most_times, most.data());
}

// Runs the work and its reference in turns, so that both meet the machine in the same state; only the work
// is on the library's clock. What must be made ready before each turn is nobody's. Gives the work's mean, by
// the clock that is handed in.
template<class Work, class Reference>
double Measure_Beside(
    benchmark::State& state, const Work& work, const Reference& reference,
    double (*clock_ms)() = Processor_Ms, const std::function<void()>& make_ready = [] {}) {
    double work_ms = 0;
    double plain_ms = 0;
    std::vector<double> works, references;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        make_ready();
        state.ResumeTiming();
        const double start = clock_ms();
        work();
        const double worked = clock_ms();
        state.PauseTiming();
        reference();
        references.push_back(clock_ms() - worked);
        works.push_back(worked - start);
        plain_ms += references.back();
        work_ms += works.back();
        state.ResumeTiming();
    }
    state.counters["slowest_ms"] = *std::max_element(works.begin(), works.end());
    state.counters["plain_ms"] = benchmark::Counter(plain_ms, benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = work_ms / plain_ms;
    state.counters["median_ratio"] = Median(works) / Median(references);
    return work_ms / static_cast<double>(state.iterations());
}

} // namespace bench
