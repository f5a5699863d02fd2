// Colouring the markup of a page, against a well-known editor's lexer over the same page.
#include "bench/page.h"
#include "bench/scintilla_page.h"
#include "bench/timing.h"
#include "editor/markup_scan.h"
#include "tests/support/test_workbench.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <vector>

namespace vellum::bench {
namespace {

constexpr QSize pageSize(900, 700);

// A shown document with a page in it, that is coloured.
class ColoredPage {
public:
    explicit ColoredPage(qsizetype size) {
        bench.active = &document_;
        document_.SetCaption("page.htm");
        document_.resize(pageSize);
        Surface().resize(pageSize);
        Surface().SetText(MakePage(size));
        document_.show();
        QApplication::processEvents();
    }

    [[nodiscard]] EditSurface& Surface() { return *document_.Text1; }

    test::TestWorkbench bench;

private:
    test::PlainDocument document_{bench};
};

// Colours the whole page anew at every run, and paints it.
void ColorWholePage(benchmark::State& state, ColoredPage& page) {
    for (auto _ : state) {
        const auto start = Clock::now();
        page.bench.Smartcolor();
        page.Surface().viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

void ScanPage(benchmark::State& state) {
    const QString page = MakePage(Megabytes(state.range(0)));
    std::size_t runs = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        const std::vector<FormatRun> formats = MarkupFormats(page, {}, {.color = 0, .bold = false});
        state.SetIterationTime(SecondsSince(start));
        runs = formats.size();
    }
    state.counters["runs"] = static_cast<double>(runs);
}

// Scan and paint, as after a document was loaded.
void ColorPage(benchmark::State& state) {
    ColoredPage page(Megabytes(state.range(0)));
    ColorWholePage(state, page);
}

// The same once the text was edited: the pass asks the document for all of it.
void ColorEditedPage(benchmark::State& state) {
    ColoredPage page(Megabytes(state.range(0)));
    page.Surface().SetSelText("x");
    ColorWholePage(state, page);
}

void LexPageInScintilla(benchmark::State& state) {
    ScintillaPage page(MakePage(Megabytes(state.range(0))), pageSize, {});
    for (auto _ : state) {
        page.SendScintilla(QsciScintilla::SCI_CLEARDOCUMENTSTYLE);
        const auto start = Clock::now();
        page.ColorAll();
        page.viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

// Markup that is pasted into the middle of a page; the argument is the size of the page in MB, the markup has 1 MB.
void ColorPastedMarkup(benchmark::State& state) {
    const QString markup = MakePage(Megabytes(1)).replace(u'\n', QLatin1String("\r\n"));
    double painting = 0;
    for (auto _ : state) {
        ColoredPage page(Megabytes(state.range(0)));
        test::TestWorkbench& bench = page.bench;
        bench.Smartcolor();
        EditSurface& surface = page.Surface();
        surface.SetSelStart(surface.Length() / 2);
        bench.ColorSpanStart = surface.SelStart();
        bench.ColorSpanLength = static_cast<std::int32_t>(markup.size());
        const auto start = Clock::now();
        surface.SetSelColor(0);
        surface.SetSelText(markup);
        const auto painted = Clock::now();
        bench.Smartcolor();
        painting += SecondsSince(painted);
        surface.viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
    state.counters["part_painting_ms"] = {1000 * painting, benchmark::Counter::kAvgIterations};
}

BENCHMARK(ScanPage)->Arg(10)->Apply(Times<20>);
BENCHMARK(ColorPage)->Arg(10)->Apply(Times<20>);
BENCHMARK(ColorEditedPage)->Arg(10)->Apply(Times<20>);
BENCHMARK(LexPageInScintilla)->Arg(10)->Apply(Times<5>);
BENCHMARK(ColorPastedMarkup)->Arg(1)->Arg(10)->Apply(Times<3>);

}  // namespace
}  // namespace vellum::bench
