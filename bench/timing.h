// What the benchmarks time with, and how often and on how much they run. With VELLUM_BENCH_SHORT in the environment
// they run once and on little, which shows that they still work.
#pragma once

#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

namespace vellum::bench {

using Clock = std::chrono::steady_clock;

[[nodiscard]] double SecondsSince(Clock::time_point start);

// As many runs as `count`, or one in a short run.
[[nodiscard]] int Runs(int count);

// For a benchmark that times itself, in milliseconds: BENCHMARK(Name)->Apply(Times<10>).
template <int count>
void Times(benchmark::internal::Benchmark* benchmark) {
    benchmark->UseManualTime()->Iterations(Runs(count))->Unit(benchmark::kMillisecond);
}

// So many characters, or a fiftieth of them in a short run.
[[nodiscard]] long Megabytes(long count);
[[nodiscard]] long Kilobytes(long count);

// Sets the counters median_ms and p95_ms from single presses.
void ReportPresses(benchmark::State& state, std::vector<double> seconds);

}  // namespace vellum::bench
