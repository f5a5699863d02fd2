// Any text, range and settings through the colour coding scan: its steps stay inside the text, a full pass has no
// overlaps, and a range without the text after it gets the same steps as with it.
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

bool Same(const MarkupScan& left, const MarkupScan& right) {
    return left.steps == right.steps && left.tagCount == right.tagCount && left.selected == right.selected;
}

void CheckRange(const QString& text, const TextRange& range, const MarkupColors& colors) {
    const auto size = static_cast<int>(text.size());
    const auto find = [&text](QStringView closing, int offset) {
        return static_cast<int>(text.indexOf(closing, offset, Qt::CaseInsensitive));
    };
    TextExcerpt excerpt{
        .text = QStringView(text).sliced(range.offset), .range = range, .endOfText = size, .find = find};
    const MarkupScan scan = ScanRange(excerpt, colors);
    for (const FormatStep& step : scan.steps) {
        Demand(step.range.offset >= range.offset && step.range.length > 0 && step.range.End() <= size);
    }
    Demand(scan.selected >= -1 && scan.selected <= size);

    const QString alone = text.mid(range.offset, range.length + 1);
    excerpt.text = alone;
    Demand(Same(ScanRange(excerpt, colors), scan));
}

void CheckWhole(const QString& text, const MarkupColors& colors) {
    const CharFormat rest{.color = 0, .bold = false};
    int end = 0;
    for (const FormatRun& run : MarkupFormats(text, colors, rest)) {
        Demand(run.range.offset >= end && run.range.length > 0);
        end = run.range.End();
        Demand(end <= text.size());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t settings = 3;  // switches, and the range in parts of the text
    constexpr int parts = 256;
    if (size < settings) return 0;
    const MarkupColors colors{.tables = 1,
                              .frames = 2,
                              .links = 3,
                              .comments = 4,
                              .other = 5,
                              .asp = 6,
                              .off = (data[0] & 1U) != 0,
                              .aspBold = (data[0] & 2U) != 0};
    QString text =
        QString::fromLatin1(reinterpret_cast<const char*>(data + settings), static_cast<qsizetype>(size - settings));
    if ((data[0] & 4U) != 0) text = QString::fromUtf8(text.toLatin1());
    const auto length = static_cast<int>(text.size());
    const int start = length * data[1] / parts;
    CheckRange(text, {.offset = start, .length = (length - start) * data[2] / (parts - 1)}, colors);
    CheckWhole(text, colors);
    return 0;
}
