// What kind of place the caret is in, which every key press asks.
#include "bench/page.h"
#include "bench/timing.h"
#include "editor/place.h"
#include "surface/edit_surface.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

namespace vellum::bench {
namespace {

// A whole window lies around the middle of a page of this size, which is the smallest.
constexpr long leastSize = 25'000;

// The caret in the middle of a page of so many kilobytes, in the words of the first line of plain text from there on:
// the scan then looks for everything, and finds the same kind of place. A letter goes in each time, as when typing.
void PlaceOfCaret(benchmark::State& state) {
    EditSurface surface;
    surface.SetText(MakePage(std::max(Kilobytes(state.range(0)), leastSize)));
    surface.SetSelStart(surface.IndexOf(QStringLiteral("and so the story"), surface.Length() / 2) + 4);
    if (PosInfoAtCaret(surface).kind != PlaceKind::Plain) return state.SkipWithError("not in plain text");
    std::vector<double> seconds;
    for (auto _ : state) {
        surface.SetSelText(QStringLiteral("x"));
        const auto start = Clock::now();
        benchmark::DoNotOptimize(PosInfoAtCaret(surface));
        seconds.push_back(SecondsSince(start));
        state.SetIterationTime(seconds.back());
    }
    ReportPresses(state, std::move(seconds));
}

BENCHMARK(PlaceOfCaret)->Arg(20)->Arg(10000)->Apply(Times<500>);

}  // namespace
}  // namespace vellum::bench
