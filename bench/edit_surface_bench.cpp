#include "bench/page.h"
#include "bench/timing.h"
#include "surface/edit_surface.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace vellum::bench {
namespace {

template <typename Widget>
std::unique_ptr<Widget> ShownWidget() {
    auto widget = std::make_unique<Widget>();
    widget->resize(900, 700);
    widget->show();
    QApplication::processEvents();
    return widget;
}

void LoadIntoEditSurface(benchmark::State& state) {
    const QString page = MakePage(Megabytes(state.range(0)));
    for (auto _ : state) {
        const auto surface = ShownWidget<EditSurface>();
        const auto start = Clock::now();
        surface->SetText(page);
        surface->viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

void LoadIntoPlainTextEdit(benchmark::State& state) {
    const QString page = MakePage(Megabytes(state.range(0)));
    for (auto _ : state) {
        const auto edit = ShownWidget<QPlainTextEdit>();
        edit->setUndoRedoEnabled(false);
        const auto start = Clock::now();
        edit->setPlainText(page);
        edit->viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

void PaintWholePage(benchmark::State& state) {
    const QString page = MakePage(Megabytes(state.range(0)));
    const std::vector<FormatRun> runs = TagRuns(page);
    const auto surface = ShownWidget<EditSurface>();
    surface->SetText(page);
    for (auto _ : state) {
        const auto start = Clock::now();
        surface->SetAllFormats({}, runs);
        surface->viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
    state.counters["runs"] = static_cast<double>(runs.size());
}

void PressKeys(benchmark::State& state, EditSurface& surface, Qt::Key key) {
    surface.ensureCursorVisible();
    surface.viewport()->repaint();
    QApplication::processEvents();
    std::vector<double> seconds;
    for (auto _ : state) {
        const auto start = Clock::now();
        QTest::keyClick(&surface, key);
        surface.viewport()->repaint();
        seconds.push_back(SecondsSince(start));
        state.SetIterationTime(seconds.back());
    }
    ReportPresses(state, std::move(seconds));
}

void PressInColoredPage(benchmark::State& state, Qt::Key key) {
    const QString page = MakePage(Megabytes(state.range(0)));
    const auto surface = ShownWidget<EditSurface>();
    surface->SetText(page);
    surface->SetAllFormats({}, TagRuns(page));
    surface->SetSelStart(surface->Length() / 2);
    PressKeys(state, *surface, key);
}

void PressLetter(benchmark::State& state) {
    PressInColoredPage(state, Qt::Key_X);
}
void PressEnter(benchmark::State& state) {
    PressInColoredPage(state, Qt::Key_Return);
}

// The whole text on one line, as minifiers write it.
QString OneLine(qsizetype size) {
    QString page = MakePage(size);
    return page.remove(u'\n');
}

void PressLetterInOneLine(benchmark::State& state) {
    const auto surface = ShownWidget<EditSurface>();
    const QString line = OneLine(Kilobytes(state.range(0)));
    surface->SetText(line);
    surface->SetAllFormats({}, TagRuns(line));
    surface->SetSelStart(surface->Length() / 2);
    PressKeys(state, *surface, Qt::Key_X);
}

void OpenOneLine(benchmark::State& state) {
    const QString line = OneLine(Kilobytes(state.range(0)));
    const std::vector<FormatRun> runs = TagRuns(line);
    for (auto _ : state) {
        const auto surface = ShownWidget<EditSurface>();
        const auto start = Clock::now();
        surface->SetText(line);
        surface->SetAllFormats({}, runs);
        surface->viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

void ScrollOneLine(benchmark::State& state) {
    const auto surface = ShownWidget<EditSurface>();
    const QString line = OneLine(Kilobytes(state.range(0)));
    surface->SetText(line);
    surface->SetAllFormats({}, TagRuns(line));
    surface->SetSelStart(surface->Length() / 2);
    surface->viewport()->repaint();
    std::vector<double> seconds;
    for (auto _ : state) {
        const auto start = Clock::now();
        QTest::keyClick(surface.get(), Qt::Key_Right, Qt::ControlModifier);
        surface->viewport()->repaint();
        seconds.push_back(SecondsSince(start));
        state.SetIterationTime(seconds.back());
    }
    ReportPresses(state, std::move(seconds));
}

BENCHMARK(LoadIntoPlainTextEdit)->Arg(10)->Apply(Times<8>);
BENCHMARK(LoadIntoEditSurface)->Arg(10)->Apply(Times<8>);
BENCHMARK(LoadIntoEditSurface)->Arg(50)->Apply(Times<1>);
BENCHMARK(PaintWholePage)->Arg(10)->Apply(Times<10>);
BENCHMARK(PressLetter)->Arg(1)->Arg(10)->Apply(Times<300>);
BENCHMARK(PressEnter)->Arg(1)->Arg(10)->Apply(Times<300>);
BENCHMARK(OpenOneLine)->Arg(1000)->Apply(Times<2>);
BENCHMARK(PressLetterInOneLine)->Arg(10)->Arg(1000)->Apply(Times<10>);
BENCHMARK(ScrollOneLine)->Arg(1000)->Apply(Times<10>);

}  // namespace
}  // namespace vellum::bench
