// From the end of the splash to the main window on the screen, as a whole and by its parts.
#include "bench/timing.h"
#include "files/recovery_store.h"
#include "settings/settings_keys.h"
#include "shell/mdiform1.h"
#include "shell/start.h"
#include "system/fonts.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>

namespace vellum::bench {
namespace {

// Nobody is asked anything during a start.
class SilentPrompts : public DialogPrompts {
public:
    Answer AskYesNo(QWidget* /*parent*/, const QString& /*text*/, const QString& /*title*/) override {
        return Answer::Yes;
    }
};

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
    qputenv("VELLUMCRAFT_NO_BROWSER", "1");  // the engine starts after the window has been shown
    const QTemporaryDir home;
    SilentPrompts prompts;
    for (auto _ : state) {
        Stopwatch watch(state);
        std::unique_ptr<SettingsStore> settings;
        QStringList fonts;
        std::unique_ptr<RecoveryStore> recovery;
        std::unique_ptr<MDIform1> window;
        watch.Time("part_settings_ms",
                   [&] { settings = std::make_unique<SettingsStore>(home.filePath("settings.json")); });
        WriteSetting(*settings, keys::showStart, "no");  // the tips would wait for an answer
        watch.Time("part_fonts_ms", [&] { fonts = PreparedFontNames(*settings, SystemFontNames()); });
        watch.Time("part_build_ms", [&] {
            recovery = std::make_unique<RecoveryStore>(home.filePath("recovery"));
            window = std::make_unique<MDIform1>(*settings, prompts, *recovery, fonts, true);
        });
        watch.Time("part_load_ms", [&] { window->Load({}, [] {}); });
        watch.Time("part_paint_ms", [&] {
            QApplication::processEvents();
            window->repaint();
        });
        state.SetIterationTime(watch.Total());
    }
}

BENCHMARK(StartToMainWindow)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellum::bench
