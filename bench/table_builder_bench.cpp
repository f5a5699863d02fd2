// The Table Builder with large tables: cells that come from a file, its OK, and rows and columns that come and go.
#include "bench/silent_start.h"
#include "bench/timing.h"
#include "files/text_file.h"
#include "tools/tables/frm_tables.h"
#include "tools/tables/table_grid.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace vellum::bench {
namespace {

constexpr int columns = 16;  // the most of their usual width are 17

// A file of so many cells.
QString MakeFile(const QTemporaryDir& folder, int cells) {
    QFile file(folder.filePath("cells.txt"));
    QByteArray text;
    for (int cell = 1; cell <= cells; ++cell) {
        text += "cell " + QByteArray::number(cell) + (cell % columns == 0 ? '\n' : '\t');
    }
    if (!file.open(QFile::WriteOnly) || file.write(text) != text.size()) return {};
    return file.fileName();
}

void ShowForm(QWidget& form) {
    form.show();
    form.repaint();
    QApplication::processEvents();
}

// The main window with one document.
class OpenWindow {
public:
    OpenWindow() {
        session_.ReadSettings();
        session_.PrepareFonts();
        session_.Build();
        session_.Load();
        Window().resize(1280, 800);
        ShowForm(Window());
    }

    [[nodiscard]] MDIform1& Window() { return session_.Window(); }

private:
    QTemporaryDir home_;
    SilentStart session_{home_.path(), false};
};

DelimitedText Read(const QString& path) {
    const std::optional<LoadedText> file = ReadTextFile(path);
    return ReadDelimitedText(file ? file->text : QString(), DelimiterOf(u"Tab"));
}

// From the file to cells that show.
void ReadIntoTable(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString path = MakeFile(folder, static_cast<int>(Kilobytes(state.range(0))));
    OpenWindow open;
    for (auto _ : state) {
        const auto start = Clock::now();
        frmTables tables(open.Window());
        tables.Fill(Read(path));
        ShowForm(tables);
        state.SetIterationTime(SecondsSince(start));
    }
}

// The same cells in the toolkit's own grid.
void ReadIntoTableWidget(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString path = MakeFile(folder, static_cast<int>(Kilobytes(state.range(0))));
    for (auto _ : state) {
        const auto start = Clock::now();
        const DelimitedText read = Read(path);
        QTableWidget table(read.rows, read.columns);
        for (int row = 0; const QStringList& texts : read.cells) {
            for (int column = 0; const QString& text : texts) {
                table.setItem(row, column++, new QTableWidgetItem(text));
            }
            ++row;
        }
        ShowForm(table);
        state.SetIterationTime(SecondsSince(start));
    }
}

// From the button to the markup.
void PressTableOk(benchmark::State& state) {
    const QTemporaryDir folder;
    const DelimitedText read = Read(MakeFile(folder, static_cast<int>(Kilobytes(state.range(0)))));
    OpenWindow open;
    for (auto _ : state) {
        frmTables tables(open.Window());
        tables.Fill(read);
        ShowForm(tables);
        const auto start = Clock::now();
        tables.findChild<QPushButton*>("cmdOK")->click();
        state.SetIterationTime(SecondsSince(start));
        if (!tables.Markup()) state.SkipWithError("the table was refused");
    }
}

// A row and a column more, and away again.
void AddAndTakeLines(benchmark::State& state) {
    OpenWindow open;
    frmTables tables(open.Window());
    tables.findChild<TableGrid*>()->Resize(200, 17);
    ShowForm(tables);
    const char* const buttons[] = {"cmdRowPlus", "cmdColPlus", "cmdRowMinus", "cmdColMinus"};
    std::vector<double> seconds;
    int press = 0;
    for (auto _ : state) {
        auto* const button = tables.findChild<QPushButton*>(buttons[press++ % 4]);
        const auto start = Clock::now();
        button->click();
        tables.repaint();
        QApplication::processEvents();
        seconds.push_back(SecondsSince(start));
        state.SetIterationTime(seconds.back());
    }
    ReportPresses(state, std::move(seconds));
}

BENCHMARK(ReadIntoTable)->Arg(100)->Apply(Times<5>);
BENCHMARK(ReadIntoTableWidget)->Arg(100)->Apply(Times<5>);
BENCHMARK(PressTableOk)->Arg(100)->Apply(Times<5>);
BENCHMARK(AddAndTakeLines)->Apply(Times<40>);

}  // namespace
}  // namespace vellum::bench
