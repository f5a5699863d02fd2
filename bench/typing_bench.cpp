// Typing, pasting and replacing in a document of the main window, with all that follows a key.
#include "bench/page.h"
#include "bench/scintilla_page.h"
#include "bench/silent_start.h"
#include "bench/timing.h"
#include "editor/document.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>
#include <vector>

namespace vellum::bench {
namespace {

// The main window with a coloured page in its one document, which has no preview.
class OpenPage {
public:
    explicit OpenPage(qsizetype size) {
        session_.ReadSettings();
        session_.PrepareFonts();
        session_.Build();
        session_.Load();
        Window().resize(1280, 800);
        Surface().SetText(MakePage(size));
        Window().Smartcolor();
        Surface().SetSelStart(Surface().Length() / 2);
        Surface().setFocus();
        Show();
    }

    [[nodiscard]] MDIform1& Window() { return session_.Window(); }
    [[nodiscard]] EditSurface& Surface() { return *Window().ActiveDocument()->Text1; }
    void Show() {
        Surface().ensureCursorVisible();
        Surface().viewport()->repaint();
        QApplication::processEvents();
    }

private:
    QTemporaryDir home_;
    SilentStart session_{home_.path(), false};
};

// Presses one letter after another, and has each painted.
void PressLetters(benchmark::State& state, QAbstractScrollArea& editor) {
    std::vector<double> seconds;
    for (auto _ : state) {
        const auto start = Clock::now();
        QTest::keyClick(&editor, Qt::Key_X);
        editor.viewport()->repaint();
        seconds.push_back(SecondsSince(start));
        state.SetIterationTime(seconds.back());
    }
    ReportPresses(state, std::move(seconds));
}

// From the start of the line in the middle, where `before` has been typed.
void TypeKeys(benchmark::State& state, const QString& before, bool isKept = true) {
    OpenPage page(Megabytes(state.range(0)));
    // Recovery has no other source.
    if (!isKept) QObject::disconnect(&page.Surface(), &EditSurface::Replaced, nullptr, nullptr);
    page.Surface().SetSelStart(page.Surface().LineStart(page.Surface().GetLineFromChar(page.Surface().SelStart())));
    QTest::keyClicks(&page.Surface(), before);
    page.Show();
    PressLetters(state, page.Surface());
}

// The same in a well-known editor, on a page of the same look.
void TypeKeysInScintilla(benchmark::State& state, const QString& before) {
    OpenPage ours(0);
    ScintillaPage page(MakePage(Megabytes(state.range(0))), ours.Surface().size(), ours.Surface().font());
    page.ColorAll();
    page.setCursorPosition(page.lines() / 2, 0);
    page.ensureCursorVisible();
    page.setFocus();
    QTest::keyClicks(&page, before);
    QApplication::processEvents();
    PressLetters(state, page);
}

constexpr const char* inText = "word ";
constexpr const char* inTag = "<a ";

void TypeInText(benchmark::State& state) {
    TypeKeys(state, inText);
}
// Without a copy for recovery that follows.
void TypeInTextUnkept(benchmark::State& state) {
    TypeKeys(state, inText, false);
}
void TypeInTag(benchmark::State& state) {
    TypeKeys(state, inTag);
}
void TypeInTextInScintilla(benchmark::State& state) {
    TypeKeysInScintilla(state, inText);
}
void TypeInTagInScintilla(benchmark::State& state) {
    TypeKeysInScintilla(state, inTag);
}

void PasteMarkup(benchmark::State& state) {
    const QString page = MakePage(Megabytes(1));
    OpenPage target(Kilobytes(10));
    for (auto _ : state) {
        QString markup = page;
        const auto start = Clock::now();
        target.Window().PortableColor(markup);
        target.Surface().viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

void ReplaceWholeText(benchmark::State& state) {
    const QString page = MakePage(Megabytes(1));
    OpenPage target(Megabytes(1));
    for (auto _ : state) {
        const auto start = Clock::now();
        target.Window().ActiveDocument()->ProcessUndo();
        target.Surface().SetText(page);
        target.Window().Smartcolor();
        target.Surface().viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

BENCHMARK(TypeInText)->Arg(1)->Arg(10)->Apply(Times<300>);
BENCHMARK(TypeInTextUnkept)->Arg(10)->Apply(Times<300>);
BENCHMARK(TypeInTag)->Arg(1)->Arg(10)->Apply(Times<300>);
BENCHMARK(TypeInTextInScintilla)->Arg(10)->Apply(Times<100>);
BENCHMARK(TypeInTagInScintilla)->Arg(10)->Apply(Times<100>);
BENCHMARK(PasteMarkup)->Apply(Times<5>);
BENCHMARK(ReplaceWholeText)->Apply(Times<5>);

}  // namespace
}  // namespace vellum::bench
