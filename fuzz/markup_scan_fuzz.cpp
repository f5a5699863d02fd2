// Any text, range and settings through the colour coding scan: its steps stay inside the text, a full pass has no
// overlaps, and a range without the text around it gets the same steps as within it.
#include "editor/markup_scan.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace vellum;

void Demand(bool holds) {
    if (!holds) std::abort();
}

void CheckRange(const QString& text, const TextRange& range, const MarkupColors& colors) {
    const MarkupScan scan = ScanMarkup(text, colors, range);
    const auto size = static_cast<int>(text.size());
    for (const FormatStep& step : scan.steps) {
        Demand(step.range.offset >= range.offset && step.range.length > 0 && step.range.End() <= size);
    }
    Demand(scan.selected >= -1 && scan.selected <= size);

    const QString piece = text.mid(range.offset, range.length + 1);
    const auto find = [&text](QStringView closing, int offset) {
        return static_cast<int>(text.indexOf(closing, offset, Qt::CaseInsensitive));
    };
    const MarkupScan alone = ScanRange({.text = piece, .range = range, .endOfText = size, .find = find}, colors);
    Demand(alone.steps == scan.steps && alone.tagCount == scan.tagCount && alone.selected == scan.selected);
}

void CheckWhole(QString text, const MarkupColors& colors) {
    const CharFormat rest{.color = 0, .bold = false};
    int end = 0;
    for (const FormatRun& run : MarkupFormats(text, colors, rest)) {
        Demand(run.range.offset >= end && run.range.length > 0);
        end = run.range.End();
        Demand(end <= text.size());
    }
    // A text of whole line ends counts as many tags when these are single characters.
    text.remove(u'\r');
    QString whole = text;
    whole.replace(u'\n', QLatin1String("\r\n"));
    const MarkupScan single = ScanMarkup(text, colors, {}, LineEnds::Lf);
    const MarkupScan both = ScanMarkup(whole, colors);
    Demand(single.tagCount == both.tagCount && single.steps.size() == both.steps.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t settings = 3;  // switches, and the range in parts of the text
    constexpr int parts = 256;
    if (size < settings) return 0;
    const MarkupColors colors{.off = (data[0] & 1U) != 0, .aspBold = (data[0] & 2U) != 0};
    QString text =
        QString::fromLatin1(reinterpret_cast<const char*>(data + settings), static_cast<qsizetype>(size - settings));
    if ((data[0] & 4U) != 0) text = QString::fromUtf8(text.toLatin1());
    const auto length = static_cast<int>(text.size());
    const int start = length * data[1] / parts;
    CheckRange(text, {.offset = start, .length = (length - start) * data[2] / (parts - 1)}, colors);
    CheckWhole(text, colors);
    return 0;
}
