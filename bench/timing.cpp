#include "bench/timing.h"

#include <QtGlobal>

#include <algorithm>

namespace vellum::bench {
namespace {

bool IsShort() {
    static const bool isShort = qEnvironmentVariableIsSet("VELLUM_BENCH_SHORT");
    return isShort;
}

}  // namespace

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

int Runs(int count) {
    return IsShort() ? 1 : count;
}

long Megabytes(long count) {
    return Kilobytes(1000 * count);
}

long Kilobytes(long count) {
    return count * (IsShort() ? 20 : 1000);
}

void ReportPresses(benchmark::State& state, std::vector<double> seconds) {
    std::ranges::sort(seconds);
    state.counters["median_ms"] = 1000 * seconds[seconds.size() / 2];
    state.counters["p95_ms"] = 1000 * seconds[seconds.size() * 95 / 100];
}

}  // namespace vellum::bench
