// Typing, pasting and replacing in a document of the main window, with all that follows a key.
#include "bench/page.h"
#include "bench/timing.h"
#include "files/recovery_store.h"
#include "shell/document_window.h"
#include "shell/mdiform1.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace vellum::bench {
namespace {

// The main window with a coloured page in its one document, which has no preview.
class OpenPage {
public:
    explicit OpenPage(qsizetype size) {
        qputenv("VELLUMCRAFT_NO_BROWSER", "1");
        window_.Load({}, [] {});
        window_.resize(1280, 800);
        Surface().SetText(MakePage(size));
        window_.Smartcolor();
        Surface().SetSelStart(Surface().Length() / 2);
        Surface().setFocus();
        Show();
    }
    // No question about the text at the end.
    ~OpenPage() { window_.ActiveDocument()->SetSaver(true); }
    OpenPage(const OpenPage&) = delete;
    OpenPage& operator=(const OpenPage&) = delete;

    [[nodiscard]] EditSurface& Surface() { return *window_.ActiveDocument()->Text1; }
    [[nodiscard]] MDIform1& Window() { return window_; }
    void Show() {
        Surface().ensureCursorVisible();
        Surface().viewport()->repaint();
        QApplication::processEvents();
    }

private:
    QTemporaryDir home_;
    DialogPrompts prompts_;
    SettingsStore settings_{home_.filePath("settings.json")};
    RecoveryStore recovery_{home_.filePath("recovery")};
    MDIform1 window_{settings_, prompts_, recovery_, {}, false};
};

void TypeKeys(benchmark::State& state, const QString& before) {
    OpenPage page(state.range(0) * megabyte);
    page.Surface().SetSelStart(page.Surface().LineStart(page.Surface().GetLineFromChar(page.Surface().SelStart())));
    QTest::keyClicks(&page.Surface(), before);
    page.Show();
    std::vector<double> seconds;
    for (auto _ : state) {
        const auto start = Clock::now();
        QTest::keyClick(&page.Surface(), Qt::Key_X);
        page.Surface().viewport()->repaint();
        seconds.push_back(SecondsSince(start));
        state.SetIterationTime(seconds.back());
    }
    ReportPresses(state, std::move(seconds));
}

void TypeInText(benchmark::State& state) {
    TypeKeys(state, "word ");
}
void TypeInTag(benchmark::State& state) {
    TypeKeys(state, "<a ");
}

void PasteMarkup(benchmark::State& state) {
    const QString page = MakePage(megabyte);
    OpenPage target(megabyte / 100);
    for (auto _ : state) {
        QString markup = page;
        const auto start = Clock::now();
        target.Window().PortableColor(markup);
        target.Surface().viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

void ReplaceWholeText(benchmark::State& state) {
    const QString page = MakePage(megabyte);
    OpenPage target(megabyte);
    for (auto _ : state) {
        const auto start = Clock::now();
        target.Window().ActiveDocument()->ProcessUndo();
        target.Surface().SetText(page);
        target.Window().Smartcolor();
        target.Surface().viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

BENCHMARK(TypeInText)->Arg(1)->Arg(10)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);
BENCHMARK(TypeInTag)->Arg(1)->Arg(10)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);
BENCHMARK(PasteMarkup)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(ReplaceWholeText)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellum::bench
