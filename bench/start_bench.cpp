// From the end of the splash to the main window on the screen, as a whole and by its parts.
#include "bench/silent_start.h"
#include "bench/timing.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace vellum::bench {
namespace {

// Times the steps of one start and adds them up by name.
class Stopwatch {
public:
    explicit Stopwatch(benchmark::State& state) : state_(state) {}

    template <typename Step>
    void Time(const char* part, const Step& step) {
        const auto start = Clock::now();
        step();
        const double seconds = SecondsSince(start);
        total_ += seconds;
        benchmark::Counter& counter = state_.counters[part];
        counter.flags = benchmark::Counter::kAvgIterations;
        counter.value += 1000 * seconds;
    }

    [[nodiscard]] double Total() const { return total_; }

private:
    benchmark::State& state_;
    double total_ = 0;
};

void StartToMainWindow(benchmark::State& state) {
    const QTemporaryDir home;
    for (auto _ : state) {
        Stopwatch watch(state);
        SilentStart session(home.path(), true);
        watch.Time("part_settings_ms", [&] { session.ReadSettings(); });
        watch.Time("part_fonts_ms", [&] { session.PrepareFonts(); });
        watch.Time("part_build_ms", [&] { session.Build(); });
        watch.Time("part_load_ms", [&] { session.Load(); });
        watch.Time("part_paint_ms", [&] {
            QApplication::processEvents();
            session.Window().repaint();
        });
        state.SetIterationTime(watch.Total());
    }
}

BENCHMARK(StartToMainWindow)->Apply(Times<10>);

}  // namespace
}  // namespace vellum::bench
