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

// Paints the range and answers where the caret goes. Costs what the range is long, whatever the text around it.
int PaintRange(EditSurface& surface, const QString& text, const TextRange& range, const MarkupColors& colors) {
    const auto find = [&surface](QStringView closing, int offset) {
        return surface.IndexOf(closing.toString(), offset, Qt::CaseInsensitive);
    };
    const MarkupScan scan =
        ScanRange({.text = text, .range = range, .endOfText = surface.Length(), .find = find}, colors);
    surface.ApplyFormats(scan.steps);
    constexpr int pairOfTags = 2;  // an opening and a closing tag have the caret between them
    return scan.tagCount == pairOfTags ? scan.selected : range.End();
}

bool HasMarkup(const EditSurface& surface, const QString& excerpt) {
    return excerpt.contains(u'<') || surface.IndexOf(QStringLiteral("<"), 0) >= 0;
}

// False for a text without any markup.
bool PaintColorSpan(Workbench& bench, Document& document) {
    EditSurface& surface = *document.Text1;
    const int start = std::clamp(bench.ColorSpanStart, 0, surface.Length());
    const TextRange range{.offset = start, .length = std::clamp(bench.ColorSpanLength, 0, surface.Length() - start)};
    // A block may end one character after the range.
    const QString text = surface.Mid(range.offset, range.length + 1);
    if (!HasMarkup(surface, text)) {
        bench.ShowStatus(StatusPanel::Work, {});
        PutCaret(surface, surface.SelStart());
        return false;
    }
    const WaitPointer waiting;
    const int caret = IsScriptCaption(document.Caption())
                          ? range.End()
                          : PaintRange(surface, text, range, ColorsOf(bench.Options().Now()));
    PutCaret(surface, caret);
    return true;
}

}  // namespace

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
    std::vector<FormatRun> formats;
    if (hasMarkup) {
        waiting.emplace();
        if (!IsScriptCaption(document.Caption())) {
            formats = MarkupFormats(text, ColorsOf(options), plain);
        }
    }
    surface.SetAllFormats(plain, formats);
    PutCaret(surface, savedCaret);
    bench.ShowStatus(StatusPanel::Work, {});
    return hasMarkup;
}

void PaintMarkup(Workbench& bench, Document& document) {
    const ColorNumber backColor = bench.Options()->backColor;
    if (document.Text1->BackColor() != backColor) document.Text1->SetBackColor(backColor);
    const bool painted = bench.ColorSpanLength == 0 ? PaintAll(bench, document) : PaintColorSpan(bench, document);
    if (!painted) return;
    bench.ColorSpanStart = 0;
    bench.ColorSpanLength = 0;
    document.Text1->setFocus();
}

}  // namespace vellum
