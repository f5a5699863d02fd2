// What the benchmarks time with.
#pragma once

#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

namespace vellum::bench {

inline constexpr long megabyte = 1'000'000;

using Clock = std::chrono::steady_clock;

[[nodiscard]] double SecondsSince(Clock::time_point start);

// Sets the counters median_ms and p95_ms from single presses.
void ReportPresses(benchmark::State& state, std::vector<double> seconds);

}  // namespace vellum::bench
