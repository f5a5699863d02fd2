// Colouring the markup of a page, against a well-known editor's lexer over the same page.
#include "bench/page.h"
#include "bench/timing.h"
#include "editor/document.h"
#include "editor/markup_scan.h"
#include "editor/reference_tree.h"
#include "editor/workbench.h"

#include <QApplication>
#include <QTemporaryDir>
#include <Qsci/qscilexerhtml.h>
#include <Qsci/qsciscintilla.h>

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace vellum::bench {
namespace {

class OneDocument : public Document {
public:
    using Document::Document;
    void ResizeMe() override {}
};

// A main window with nothing but the document that is coloured.
class ColoringWorkbench : public Workbench {
public:
    explicit ColoringWorkbench(const QString& page) {
        Options().Set(ReadEditorOptions(settings_));
        document_->SetCaption("page.htm");
        document_->Text1->resize(900, 700);
        document_->Text1->SetText(page);
        document_->Text1->show();
        QApplication::processEvents();
    }

    [[nodiscard]] EditSurface& Surface() { return *document_->Text1; }

    [[nodiscard]] Document* ActiveDocument() const override { return document_.get(); }
    [[nodiscard]] SettingsStore& Settings() override { return settings_; }
    [[nodiscard]] Prompts& Ask() override { return prompts_; }
    [[nodiscard]] QWidget* Window() override { return nullptr; }
    [[nodiscard]] QList<Document*> Documents() const override { return {document_.get()}; }
    [[nodiscard]] int OpenDocCount() const override { return 1; }
    void ShowStatus(StatusPanel /*panel*/, const QString& /*text*/) override {}
    [[nodiscard]] bool UsePreview() const override { return false; }
    [[nodiscard]] QStringList FontNames() const override { return {}; }
    [[nodiscard]] QString WebsiteDirectory() const override { return {}; }
    void RefreshWebsite() override {}
    [[nodiscard]] QStringList ImageTypes() const override { return {}; }
    [[nodiscard]] QStringList DocumentTypes() const override { return {}; }
    void OpenInNewWindow(const QString& /*path*/, const QString& /*failure*/) override {}
    [[nodiscard]] const ReferenceTree& References() const override { return references_; }
    Document* NewForm() override { return nullptr; }
    void LoadPage(const QString& /*html*/) override {}

private:
    QTemporaryDir folder_;
    SettingsStore settings_{folder_.filePath("settings.json")};
    DialogPrompts prompts_;
    ReferenceTree references_;
    std::unique_ptr<OneDocument> document_ = std::make_unique<OneDocument>(*this);
};

void ScanPage(benchmark::State& state) {
    const QString page = MakePage(state.range(0) * megabyte);
    std::size_t stretches = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        const std::vector<FormatSpan> formats = MarkupFormats(page, {}, {.color = 0, .bold = false}, LineEnds::Lf);
        state.SetIterationTime(SecondsSince(start));
        stretches = formats.size();
    }
    state.counters["stretches"] = static_cast<double>(stretches);
}

// Scan and paint, as after a document was loaded.
void ColorPage(benchmark::State& state) {
    ColoringWorkbench bench(MakePage(state.range(0) * megabyte));
    for (auto _ : state) {
        const auto start = Clock::now();
        bench.Smartcolor();
        bench.Surface().viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

// The same once the text was edited: the pass asks the document for all of it.
void ColorEditedPage(benchmark::State& state) {
    ColoringWorkbench bench(MakePage(state.range(0) * megabyte));
    bench.Surface().SetSelText("x");
    for (auto _ : state) {
        const auto start = Clock::now();
        bench.Smartcolor();
        bench.Surface().viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

void LexPageInScintilla(benchmark::State& state) {
    QsciScintilla editor;
    QsciLexerHTML lexer(&editor);
    editor.setLexer(&lexer);
    editor.resize(900, 700);
    editor.show();
    editor.setText(MakePage(state.range(0) * megabyte));
    QApplication::processEvents();
    for (auto _ : state) {
        editor.SendScintilla(QsciScintilla::SCI_CLEARDOCUMENTSTYLE);
        const auto start = Clock::now();
        editor.SendScintilla(QsciScintilla::SCI_COLOURISE, 0L, -1L);
        editor.viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
    }
}

// Markup that is pasted into the middle of a page; the argument is the size of the page in MB, the markup has 1 MB.
void ColorPastedMarkup(benchmark::State& state) {
    const QString markup = MakePage(megabyte).replace(u'\n', QLatin1String("\r\n"));
    double painting = 0;
    for (auto _ : state) {
        ColoringWorkbench bench(MakePage(state.range(0) * megabyte));
        bench.Smartcolor();
        EditSurface& surface = bench.Surface();
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

BENCHMARK(ScanPage)->Arg(10)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(ColorPage)->Arg(10)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(ColorEditedPage)->Arg(10)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(LexPageInScintilla)->Arg(10)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(ColorPastedMarkup)->Arg(1)->Arg(10)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellum::bench
