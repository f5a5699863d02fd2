#include "editor/document.h"
#include "editor/insertion_color.h"
#include "editor/markup_scan.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "widgets/wait_pointer.h"

#include <QScrollBar>

#include <algorithm>
#include <optional>
#include <vector>

namespace vellum {
namespace {

constexpr int passPanel = 4;

MarkupColors ColorsOf(Workbench& bench) {
    return {.tables = ColorOfValue(bench.TablesColor),
            .frames = ColorOfValue(bench.FramesColor),
            .links = ColorOfValue(bench.LinksColor),
            .comments = ColorOfValue(bench.CommentsColor),
            .other = ColorOfValue(bench.OtherColor),
            .asp = ColorOfValue(bench.AspColor),
            .off = ColorCodingOff(bench),
            .aspBold = ReadNumberSetting(bench.Settings(), keys::aspBold) == 1};
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

}  // namespace

void Workbench::Smartcolor() {
    Document* const document = ActiveDocument();
    if (document == nullptr) return;
    const ColorNumber backColor = ColorOfValue(ReadNumberSetting(Settings(), keys::backColor));
    if (document->Text1->BackColor() != backColor) document->Text1->SetBackColor(backColor);
    const bool painted = ColorSpanLength == 0 ? ColorWholeText(*document) : ColorSpan(*document);
    if (!painted) return;
    ColorSpanStart = 0;
    ColorSpanLength = 0;
    document->Text1->setFocus();
}

bool Workbench::ColorWholeText(Document& document) {
    EditSurface& surface = *document.Text1;
    const CharFormat plain{.color = PlainColor(*this), .bold = false};
    const int savedCaret = surface.SelStart();
    SetPanel(passPanel, QStringLiteral("Color Coding"));
    if (surface.ForeColor() != *plain.color) surface.SetForeColor(*plain.color);
    const QString text = surface.RawText();
    const bool hasMarkup = text.contains(u'<');
    std::optional<WaitPointer> waiting;
    std::vector<FormatSpan> formats;
    if (hasMarkup) {
        waiting.emplace();
        if (!IsScriptCaption(document.Caption())) {
            formats = MarkupFormats(text, ColorsOf(*this), plain, LineEnds::Lf);
        }
    }
    surface.SetAllFormats(plain, formats, 1);
    PutCaret(surface, savedCaret);
    SetPanel(passPanel, {});
    return hasMarkup;
}

bool Workbench::ColorSpan(Document& document) {
    EditSurface& surface = *document.Text1;
    const int start = std::clamp(ColorSpanStart, 0, surface.Length());
    const MarkupSpan span{.start = start, .length = std::clamp(ColorSpanLength, 0, surface.Length() - start)};
    // A block may end one character behind the stretch.
    const QString text = surface.Mid(span.start, span.length + 1);
    if (!HasMarkup(surface, text)) {
        SetPanel(passPanel, {});
        PutCaret(surface, surface.SelStart());
        return false;
    }
    const WaitPointer waiting;
    const int caret = IsScriptCaption(document.Caption()) ? span.start + span.length
                                                          : PaintStretch(surface, text, span, ColorsOf(*this));
    PutCaret(surface, caret);
    return true;
}

}  // namespace vellum
