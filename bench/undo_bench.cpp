#include "bench/page.h"
#include "bench/timing.h"
#include "editor/undo_history.h"
#include "surface/edit_surface.h"

#include <QApplication>
#include <QTest>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>
#include <vector>

namespace vellum::bench {
namespace {

constexpr int steps = 31;

// A shown page in its colours, with the caret in the middle.
std::unique_ptr<EditSurface> ColoredPage(qsizetype size) {
    auto surface = std::make_unique<EditSurface>();
    surface->resize(900, 700);
    surface->show();
    const QString page = MakePage(size);
    surface->SetText(page);
    surface->SetAllFormats({}, TagRuns(page));
    surface->SetSelStart(surface->Length() / 2);
    surface->viewport()->repaint();
    QApplication::processEvents();
    return surface;
}

// Every step goes to a line of its own, all over the page.
void TypeRun(EditSurface& surface, int step) {
    surface.SetSelStart(static_cast<int>(static_cast<double>(surface.Length()) * (step % steps + 1) / (steps + 2)));
    QTest::keyClicks(&surface, "some more words");
}

void SnapshotAfterTyping(benchmark::State& state) {
    const auto surface = ColoredPage(Megabytes(state.range(0)));
    std::vector<EditSurface::Snapshot> kept;
    int step = 0;
    for (auto _ : state) {
        TypeRun(*surface, step++);
        const auto start = Clock::now();
        kept.push_back(surface->TakeSnapshot());
        state.SetIterationTime(SecondsSince(start));
    }
}

// What a snapshot costs that holds a text and its formats whole.
struct WholeCopy {
    QString text;
    std::vector<std::vector<FormatRun>> runs;
};

WholeCopy CopyOf(const EditSurface& surface) {
    WholeCopy copy{surface.RawText(), {}};
    copy.runs.reserve(static_cast<std::size_t>(surface.Formats().LineCount()));
    for (int line = 0; line < surface.Formats().LineCount(); ++line) {
        const auto list = surface.Formats().Runs(line);
        copy.runs.emplace_back(list.begin(), list.end());
    }
    return copy;
}

void CopyAfterTyping(benchmark::State& state) {
    const auto surface = ColoredPage(Megabytes(state.range(0)));
    int step = 0;
    const auto bytesBefore = mallinfo2().uordblks + mallinfo2().hblkhd;
    std::vector<WholeCopy> kept;
    for (auto _ : state) {
        TypeRun(*surface, step++);
        const auto start = Clock::now();
        kept.push_back(CopyOf(*surface));
        state.SetIterationTime(SecondsSince(start));
    }
    const auto bytes = mallinfo2().uordblks + mallinfo2().hblkhd - bytesBefore;
    // As many as undo and redo keep.
    state.counters["percent_of_text"] =
        100.0 * 2 * steps * static_cast<double>(bytes / kept.size()) / static_cast<double>(surface->Length());
}

// One step of one line back, and painted.
void UndoOneLine(benchmark::State& state) {
    const auto surface = ColoredPage(Megabytes(state.range(0)));
    const int middle = surface->SelStart();
    for (auto _ : state) {
        const auto snapshot = surface->TakeSnapshot();
        QTest::keyClicks(surface.get(), "some more words");
        surface->viewport()->repaint();
        const auto start = Clock::now();
        const auto redo = surface->TakeSnapshot();
        surface->Restore(snapshot);
        surface->SetSelStart(middle);
        surface->PlaceCaretLine(4);
        surface->viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

// The same when the text and all colours have to come anew.
void UndoByLoading(benchmark::State& state) {
    const auto surface = ColoredPage(Megabytes(state.range(0)));
    const int middle = surface->SelStart();
    const QString text = surface->RawText();
    const std::vector<FormatRun> runs = TagRuns(text);
    for (auto _ : state) {
        const auto start = Clock::now();
        surface->SetText(text);
        surface->SetAllFormats({}, runs);
        surface->SetSelStart(middle);
        surface->PlaceCaretLine(4);
        surface->viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

// Full stacks of undo and redo, of steps of one line each.
void FullHistory(benchmark::State& state) {
    const auto surface = ColoredPage(Megabytes(state.range(0)));
    for (int step = 0; step < steps; ++step) TypeRun(*surface, step);  // what the text itself takes for such edits
    for (auto _ : state) {
        UndoHistory history;
        const auto bytesBefore = mallinfo2().uordblks;
        const auto start = Clock::now();
        const auto push = [&](UndoHistory::Texts& texts, UndoHistory::Carets& carets) {
            UndoHistory::Push(texts, carets, surface->TakeSnapshot(), surface->SelStart());
        };
        for (int step = 0; step < 2 * steps; ++step) {
            push(history.UndoText, history.UndoPos);
            TypeRun(*surface, step);
        }
        for (int step = 0; step < steps; ++step) {
            push(history.RedoText, history.RedoPos);
            surface->Restore(std::get<EditSurface::Snapshot>(history.UndoText[0]));
            UndoHistory::Drop(history.UndoText, history.UndoPos);
        }
        for (int step = 0; step < steps; ++step) {
            push(history.UndoText, history.UndoPos);
            TypeRun(*surface, step);
        }
        state.SetIterationTime(SecondsSince(start));
        const double percent = 100.0 / static_cast<double>(surface->Length());
        state.counters["percent_of_heap"] = percent * static_cast<double>(mallinfo2().uordblks - bytesBefore);
    }
}

BENCHMARK(CopyAfterTyping)->Arg(10)->Apply(Times<5>);
BENCHMARK(SnapshotAfterTyping)->Arg(1)->Arg(10)->Apply(Times<100>);
BENCHMARK(UndoByLoading)->Arg(10)->Apply(Times<3>);
BENCHMARK(UndoOneLine)->Arg(1)->Arg(10)->Apply(Times<50>);
BENCHMARK(FullHistory)->Arg(10)->Apply(Times<1>);

}  // namespace
}  // namespace vellum::bench
