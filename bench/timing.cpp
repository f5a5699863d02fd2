#include "bench/timing.h"

#include <algorithm>

namespace vellum::bench {

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void ReportPresses(benchmark::State& state, std::vector<double> seconds) {
    std::ranges::sort(seconds);
    state.counters["median_ms"] = 1000 * seconds[seconds.size() / 2];
    state.counters["p95_ms"] = 1000 * seconds[seconds.size() * 95 / 100];
}

}  // namespace vellum::bench
