// A word processor's file to markup, against a converter that does the same by the command line.
#include "bench/timing.h"
#include "import/import_commands.h"
#include "import/rtf_reader.h"
#include "import/text_import.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <array>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <random>

namespace vellum::bench {
namespace {

// Paragraphs with words in several formats, as word processors write them.
QByteArray MakeRtf(qsizetype size) {
    static constexpr std::array<const char*, 16> words{"the",  "heron", "stood",   "by",   "its",    "pond",
                                                       "and",  "water", "watched", "how",  "slowly", "fish",
                                                       "went", "under", "leaves",  "until"};
    static constexpr std::array<const char*, 7> formats{"", "", "", "\\b", "\\i", "\\ul\\ulc0", "\\cf2\\f1"};
    constexpr auto paragraph =
        "\\pard\\plain \\s0\\rtlch\\af2\\afs24\\alang1081 \\ltrch\\lang1033\\langfe2052\\hich\\af0\\loch\\nowidctlpar"
        "\\hyphpar0\\ltrpar\\cf0\\f0\\fs24\\lang1033\\kerning1\\dbch\\af2\\langfe2052\\ql\\ltrpar";
    std::mt19937 random(5);
    const auto below = [&random](unsigned bound) { return random() % bound; };
    QByteArray rtf =
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman\\fprq2\\fcharset0 Liberation Serif;}"
        "{\\f1\\fswiss\\fprq2\\fcharset0 Liberation "
        "Sans;}}{\\colortbl;\\red0\\green0\\blue0;\\red0\\green0\\blue255;}\n";
    while (rtf.size() < size) {
        rtf += paragraph;
        for (unsigned run = 1 + below(6); run > 0; --run) {
            rtf += QByteArray("{") + formats.at(below(formats.size())) + "\\loch\n";
            for (unsigned count = 3 + below(23); count > 0; --count) {
                rtf += QByteArray(words.at(below(words.size()))) + ' ';
            }
            rtf += below(5) == 0 ? "\\'e9\\u8364\\'80}" : "}";
        }
        rtf += "\n\\par ";
    }
    return rtf + '}';
}

class RtfFile {
public:
    explicit RtfFile(qsizetype size) {
        QFile file(Path());
        if (file.open(QFile::WriteOnly)) size_ = file.write(MakeRtf(size));
    }

    [[nodiscard]] QString Path() const { return folder_.filePath("heron.rtf"); }
    [[nodiscard]] qint64 Size() const { return size_; }

private:
    QTemporaryDir folder_;
    qint64 size_ = 0;
};

// A figure of /proc/self/status, in bytes.
double StatusBytes(const QByteArray& name) {
    QFile status("/proc/self/status");
    if (!status.open(QFile::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name + ':'))
            return 1024 * line.mid(name.size() + 1).simplified().split(' ').front().toDouble();
    }
    return 0;
}

void ForgetPeak() {
    malloc_trim(0);
    QFile references("/proc/self/clear_refs");
    if (references.open(QFile::WriteOnly)) references.write("5");
}

void ImportRtf(benchmark::State& state) {
    const RtfFile file(Megabytes(state.range(0)));
    double memory = 0;
    for (auto _ : state) {
        ForgetPeak();
        const double before = StatusBytes("VmRSS");
        const auto start = Clock::now();
        const std::optional<QString> markup = ImportedMarkup(file.Path(), "Courier New", 8.5);
        state.SetIterationTime(SecondsSince(start));
        memory = std::max(memory, StatusBytes("VmHWM") - before);
        if (!markup || markup->isEmpty()) state.SkipWithError("the file was not read");
    }
    state.counters["times_of_file"] = memory / static_cast<double>(file.Size());
}

void ImportRtfByUnrtf(benchmark::State& state) {
    const RtfFile file(Megabytes(state.range(0)));
    const QString program = QStandardPaths::findExecutable("unrtf");
    if (program.isEmpty() && Runs(2) > 1) return state.SkipWithError("unrtf is not installed");
    for (auto _ : state) {
        if (program.isEmpty()) {
            state.SetIterationTime(0);
            continue;  // a short run has no table to fill
        }
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        const auto start = Clock::now();
        process.start(program, {"--html", file.Path()});
        if (!process.waitForFinished(-1)) state.SkipWithError("unrtf did not end");
        state.SetIterationTime(SecondsSince(start));
    }
}

void ConvertRich(benchmark::State& state) {
    const RichText rich = ReadRtf(MakeRtf(Megabytes(state.range(0))));
    for (auto _ : state) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(ConvertRichText(rich));
        state.SetIterationTime(SecondsSince(start));
    }
}

BENCHMARK(ImportRtf)->Arg(5)->Apply(Times<10>);
BENCHMARK(ImportRtfByUnrtf)->Arg(5)->Apply(Times<3>);
BENCHMARK(ConvertRich)->Arg(1)->Arg(10)->Apply(Times<10>);

}  // namespace
}  // namespace vellum::bench
