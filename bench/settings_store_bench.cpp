#include "bench/timing.h"
#include "settings/settings_store.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace vellum::bench {
namespace {

void ReadSettings(benchmark::State& state) {
    const QTemporaryDir folder;
    SettingsStore store(folder.filePath("settings.json"));
    const auto keyOf = [](int index) { return QStringLiteral("Key%1").arg(index); };
    const int keys = static_cast<int>(state.range(0));
    {
        const SettingsStore::Batch batch(store);
        for (int index = 0; index < keys; ++index) {
            store.Write(u"Vellumcraft", u"Settings", keyOf(index), QStringLiteral("value %1").arg(index));
        }
    }
    const QString key = keyOf(keys / 2);
    for (auto _ : state) {
        benchmark::DoNotOptimize(store.Read(u"Vellumcraft", u"Settings", key));
    }
}

BENCHMARK(ReadSettings)->Arg(2000)->Iterations(Runs(5'000'000))->Unit(benchmark::kNanosecond);

}  // namespace
}  // namespace vellum::bench
