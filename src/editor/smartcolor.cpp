#include "editor/smartcolor.h"

#include "editor/document.h"
#include "editor/markup_scan.h"
#include "editor/workbench.h"
#include "widgets/wait_pointer.h"

#include <QScrollBar>

#include <algorithm>
#include <optional>
#include <vector>

namespace vellum {
namespace {

MarkupColors ColorsOf(const EditorOptions& options) {
    return {.tables = options.TablesColor,
            .frames = options.FramesColor,
            .links = options.LinksColor,
            .comments = options.CommentsColor,
            .other = options.OtherColor,
            .asp = options.AspColor,
            .off = options.colorCodingOff,
            .aspBold = options.aspBold};
}

// The caret alone, at `offset`. What the window shows stays when the caret does.
void PutCaret(EditSurface& surface, int offset) {
    const int before = surface.textCursor().position();
    const int down = surface.verticalScrollBar()->value();
    const int right = surface.horizontalScrollBar()->value();
    surface.SetSelStart(offset);
    if (surface.textCursor().position() != before) return;
    surface.verticalScrollBar()->setValue(down);
    surface.horizontalScrollBar()->setValue(right);
}

// Paints the stretch and answers where the caret goes. Costs what the stretch is long, whatever the text around it.
int PaintStretch(EditSurface& surface, const QString& text, const MarkupSpan& span, const MarkupColors& colors) {
    const auto find = [&surface](QStringView closing, int offset) {
        return surface.IndexOf(closing.toString(), offset, Qt::CaseInsensitive);
    };
    const MarkupScan scan =
        ScanStretch({.text = text, .span = span, .endOfText = surface.Length(), .find = find}, colors);
    std::vector<FormatStep> steps;
    steps.reserve(scan.steps.size());
    for (const PaintStep& step : scan.steps) {
        FormatChange change;
        if (step.color) change.color = *step.color;
        if (step.bold) change.bold = true;
        steps.push_back({.offset = step.offset, .length = step.length, .change = change, .ofOneColor = step.compare});
    }
    surface.ApplyFormats(steps);
    constexpr int pairOfTags = 2;  // an opening and a closing tag have the caret between them
    return scan.tagCount == pairOfTags ? scan.selected : span.start + span.length;
}

bool HasMarkup(const EditSurface& surface, const QString& stretch) {
    return stretch.contains(u'<') || surface.IndexOf(QStringLiteral("<"), 0) >= 0;
}

// Both passes answer false when the text holds no markup at all.
bool PaintAll(Workbench& bench, Document& document) {
    EditSurface& surface = *document.Text1;
    const EditorOptions& options = bench.Options().Now();
    const CharFormat plain{.color = options.foreColor, .bold = false};
    const int savedCaret = surface.SelStart();
    bench.ShowStatus(StatusPanel::Work, QStringLiteral("Color Coding"));
    if (surface.ForeColor() != *plain.color) surface.SetForeColor(*plain.color);
    const QString text = surface.RawText();
    const bool hasMarkup = text.contains(u'<');
    std::optional<WaitPointer> waiting;
    std::vector<FormatSpan> formats;
    if (hasMarkup) {
        waiting.emplace();
        if (!IsScriptCaption(document.Caption())) {
            formats = MarkupFormats(text, ColorsOf(options), plain, LineEnds::Lf);
        }
    }
    surface.SetAllFormats(plain, formats, 1);
    PutCaret(surface, savedCaret);
    bench.ShowStatus(StatusPanel::Work, {});
    return hasMarkup;
}

bool PaintRange(Workbench& bench, Document& document) {
    EditSurface& surface = *document.Text1;
    const int start = std::clamp(bench.ColorSpanStart, 0, surface.Length());
    const MarkupSpan span{.start = start, .length = std::clamp(bench.ColorSpanLength, 0, surface.Length() - start)};
    // A block may end one character after the range.
    const QString text = surface.Mid(span.start, span.length + 1);
    if (!HasMarkup(surface, text)) {
        bench.ShowStatus(StatusPanel::Work, {});
        PutCaret(surface, surface.SelStart());
        return false;
    }
    const WaitPointer waiting;
    const int caret = IsScriptCaption(document.Caption())
                          ? span.start + span.length
                          : PaintStretch(surface, text, span, ColorsOf(bench.Options().Now()));
    PutCaret(surface, caret);
    return true;
}

}  // namespace

void PaintMarkup(Workbench& bench, Document& document) {
    const ColorNumber backColor = bench.Options()->backColor;
    if (document.Text1->BackColor() != backColor) document.Text1->SetBackColor(backColor);
    const bool painted = bench.ColorSpanLength == 0 ? PaintAll(bench, document) : PaintRange(bench, document);
    if (!painted) return;
    bench.ColorSpanStart = 0;
    bench.ColorSpanLength = 0;
    document.Text1->setFocus();
}

}  // namespace vellum
