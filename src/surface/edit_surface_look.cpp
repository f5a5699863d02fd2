// The look of the edit surface: colours and weights of characters, fonts, background and wrapping.
#include "surface/edit_surface_private.h"
#include "system/fonts.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QPlainTextDocumentLayout>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace vellum {
namespace {

constexpr int outdated = 0;  // a user state that no version of the formats has
constexpr int tabColumns = 4;

// How bright a colour looks, 0 to 255.
int Brightness(const QColor& color) {
    return (color.red() * 299 + color.green() * 587 + color.blue() * 114) / 1000;
}

// With less of a difference than this a selection would be hard to see on its background.
constexpr int visibleDifference = 40;

// Finds the places of offsets, from line to line: a short way when the next offset isn't far from the last one.
class PlaceFinder {
public:
    // `lineStart` is the offset of the line's first character.
    PlaceFinder(const FormatStore& formats, int line, int lineStart)
        : formats_(formats), line_(line), lineStart_(lineStart) {}

    [[nodiscard]] TextPlace At(int offset) {
        while (offset < lineStart_ && line_ > 0) lineStart_ -= formats_.LineLength(--line_) + lineEndLength;
        int length = formats_.LineLength(line_);
        while (offset >= lineStart_ + length + lineEndLength && line_ + 1 < formats_.LineCount()) {
            lineStart_ += length + lineEndLength;
            length = formats_.LineLength(++line_);
        }
        return {line_, std::clamp(offset - lineStart_, 0, length)};
    }

private:
    static constexpr int lineEndLength = 2;

    const FormatStore& formats_;
    int line_;
    int lineStart_;
};

}  // namespace

std::optional<ColorNumber> EditSurface::SelColor() const {
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) return d_->InsertionFormat().color.value_or(d_->foreColor);
    return d_->formats.CommonColor(d_->PlaceOf(cursor.selectionStart()), d_->PlaceOf(cursor.selectionEnd()),
                                   d_->foreColor);
}

void EditSurface::SetSelColor(ColorNumber color) {
    d_->ChangeFormat({.color = color, .bold = {}});
}

std::optional<bool> EditSurface::SelBold() const {
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) return d_->InsertionFormat().bold;
    return d_->formats.CommonBold(d_->PlaceOf(cursor.selectionStart()), d_->PlaceOf(cursor.selectionEnd()));
}

void EditSurface::SetSelBold(bool bold) {
    d_->ChangeFormat({.color = {}, .bold = bold});
}

void EditSurface::SetFormat(const TextRange& range, const FormatChange& change) {
    const int begin = std::clamp(range.offset, 0, Length());
    const int count = std::clamp(range.length, 0, Length() - begin);
    d_->ChangeFormat(d_->PositionOf(begin), d_->PositionOf(begin + count), change);
}

void EditSurface::ApplyFormats(std::span<const FormatStep> steps) {
    if (steps.empty()) return;
    const QTextBlock first = document()->findBlock(d_->PositionOf(steps.front().range.offset));
    PlaceFinder places(d_->formats, first.blockNumber(), d_->OffsetOf(first.position()));
    int firstLine = first.blockNumber();
    int lastLine = firstLine;
    for (const FormatStep& step : steps) {
        const TextPlace from = places.At(step.range.offset);
        const TextPlace to = places.At(step.range.End());
        if (step.ofOneColor && !d_->formats.CommonColor(from, to, d_->foreColor)) continue;
        d_->formats.SetFormat(from, to, step.change);
        firstLine = std::min(firstLine, from.line);
        lastLine = std::max(lastLine, to.line);
    }
    d_->MarkOutdated(firstLine, lastLine);
    viewport()->update();
}

void EditSurface::SetAllFormats(const CharFormat& rest, std::span<const FormatRun> runs) {
    d_->formats.SetAll(rest, runs);
    d_->insertion.reset();
    d_->MarkAllOutdated();
}

CharFormat EditSurface::FormatAt(int offset) const {
    return d_->formats.FormatAt(d_->PlaceOf(d_->PositionOf(offset)));
}

const FormatStore& EditSurface::Formats() const {
    return d_->formats;
}

void EditSurface::Private::ChangeFormat(const FormatChange& change) {
    const QTextCursor cursor = q.textCursor();
    if (cursor.hasSelection()) {
        ChangeFormat(cursor.selectionStart(), cursor.selectionEnd(), change);
    } else {
        insertion = change.AppliedTo(InsertionFormat());
    }
}

void EditSurface::Private::ChangeFormat(int from, int to, const FormatChange& change) {
    const TextPlace begin = PlaceOf(from);
    const TextPlace end = PlaceOf(to);
    formats.SetFormat(begin, end, change);
    if (end.line - begin.line + 1 == formats.LineCount()) {
        MarkAllOutdated();
    } else {
        MarkOutdated(begin.line, end.line);
        q.viewport()->update();
    }
}

void EditSurface::Private::MarkOutdated(int firstLine, int lastLine) {
    QTextBlock block = q.document()->findBlockByNumber(firstLine);
    for (int line = firstLine; line <= lastLine && block.isValid(); ++line, block = block.next()) {
        block.setUserState(outdated);
    }
}

void EditSurface::Private::MarkAllOutdated() {
    ++formatVersion;
    q.viewport()->update();
}

QList<QTextLayout::FormatRange> EditSurface::Private::RangesOf(const QTextBlock& block) const {
    QList<QTextLayout::FormatRange> ranges;
    const bool overlong = block.length() > overlongLine;
    VisitRow(formats.Runs(block.blockNumber()), 0, block.length() - 1, formats.Base(), [&](const FormatRun& run) {
        const ColorNumber color = run.format.color.value_or(foreColor);
        if (color == foreColor && !run.format.bold && !overlong) return true;
        QTextCharFormat look;
        // Without ligatures and the like the toolkit takes half the time.
        if (overlong) look.setFontStyleStrategy(QFont::PreferNoShaping);
        if (color != foreColor) look.setForeground(ColorFromNumber(color));
        if (run.format.bold) look.setFontWeight(QFont::Bold);
        ranges.push_back({run.range.offset, run.range.length, look});
        return true;
    });
    return ranges;
}

void EditSurface::Private::HandFormats(QTextBlock block) {
    QTextLayout* const layout = block.layout();
    QList<QTextLayout::FormatRange> ranges = RangesOf(block);
    const int preeditLength = static_cast<int>(layout->preeditAreaText().size());
    if (preeditLength > 0) {
        // What an input method is composing stands in the layout only: our ranges make room for it, its own stay.
        const int preeditStart = layout->preeditAreaPosition();
        const int preeditEnd = preeditStart + preeditLength;
        for (QTextLayout::FormatRange& range : ranges) {
            if (range.start >= preeditStart) {
                range.start += preeditLength;
            } else if (range.start + range.length > preeditStart) {
                range.length += preeditLength;
            }
        }
        for (const QTextLayout::FormatRange& range : layout->formats()) {
            if (range.start >= preeditStart && range.start + range.length <= preeditEnd) ranges.push_back(range);
        }
    }
    block.setUserState(formatVersion);
    // The toolkit forgets a layout's glyphs to save memory, and shapes the whole line anew for each blink of the caret.
    layout->setCacheEnabled(block.length() > overlongLine);
    if (ranges == layout->formats()) return;
    layout->setFormats(ranges);
    q.document()->markContentsDirty(block.position(), block.length());
}

void EditSurface::Private::HandOverlongFormats(int firstLine, int lastLine) {
    QTextBlock block = q.document()->findBlockByNumber(firstLine);
    for (int line = firstLine; line <= lastLine && block.isValid(); ++line, block = block.next()) {
        if (block.length() > overlongLine) HandFormats(block);
    }
}

void EditSurface::Private::HandVisibleFormats(int bottom) {
    QTextBlock block = q.firstVisibleBlock();
    qreal top = q.blockBoundingGeometry(block).translated(q.contentOffset()).top();
    int linesGained = 0;
    {
        // The blocks are about to be painted: if each asked for that once more, all would be painted twice.
        const QSignalBlocker blocker(q.document()->documentLayout());
        for (; block.isValid() && top <= bottom; block = block.next()) {
            if (block.userState() != formatVersion) {
                const int lines = block.lineCount();
                HandFormats(block);
                linesGained |= block.lineCount() ^ lines;
            }
            top += q.blockBoundingRect(block).height();
        }
    }
    if (linesGained != 0) {
        QMetaObject::invokeMethod(
            &q,
            [this] {
                auto* const layout = q.document()->documentLayout();
                emit layout->documentSizeChanged(layout->documentSize());
                q.viewport()->update();
            },
            Qt::QueuedConnection);
    }
}

void EditSurface::PlaceCaretLine(int linesAbove) {
    const int linesSeen = viewport()->height() / std::max(1, fontMetrics().lineSpacing());
    const int wanted = std::clamp(linesAbove, 0, std::max(0, linesSeen - 1));
    const QTextCursor caret = textCursor();
    QTextBlock block = caret.block();
    // Where lines are wrapped shows only in a layout, and hangs on the formats.
    const auto layOut = [this](const QTextBlock& line) {
        if (line.userState() != d_->formatVersion) d_->HandFormats(line);
        static_cast<void>(blockBoundingRect(line));
    };
    layOut(block);
    const QTextLine line = block.layout()->lineForTextPosition(caret.positionInBlock());
    int above = line.isValid() ? line.lineNumber() : 0;  // lines from the block's first to the caret's
    while (above < wanted && block.previous().isValid()) {
        block = block.previous();
        layOut(block);
        above += block.lineCount();
    }
    verticalScrollBar()->setValue(block.firstLineNumber() + std::max(0, above - wanted));
    ensureCursorVisible();
}

void EditSurface::paintEvent(QPaintEvent* event) {
    d_->HandVisibleFormats(event->rect().bottom());
    QPlainTextEdit::paintEvent(event);
}

bool EditSurface::event(QEvent* event) {
    if (event->type() == QEvent::Paint && viewportMargins().right() > 0) {
        // The strip beside the wrapped lines is part of the page.
        QPainter(this).fillRect(contentsRect(), palette().base());
    }
    return QPlainTextEdit::event(event);
}

void EditSurface::SetEditorFont(const QString& family, const QString& pointSize) {
    d_->fontFamily = family;
    d_->pointSize = pointSize;
    QFont font(family);
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(PointSize(pointSize));
    setFont(font);
    setTabStopDistance(tabColumns * QFontMetricsF(font).horizontalAdvance(u' '));
}

QString EditSurface::SelFontName() const {
    return d_->fontFamily;
}

QString EditSurface::SelFontSize() const {
    return d_->pointSize;
}

void EditSurface::SetForeColor(ColorNumber color) {
    d_->foreColor = color;
    d_->ApplyColors();
    d_->MarkAllOutdated();
}

ColorNumber EditSurface::ForeColor() const {
    return d_->foreColor;
}

void EditSurface::SetBackColor(ColorNumber color) {
    d_->backColor = color;
    d_->ApplyColors();
}

ColorNumber EditSurface::BackColor() const {
    return d_->backColor;
}

void EditSurface::Private::ApplyColors() {
    const QColor fore = ColorFromNumber(foreColor);
    const QColor back = ColorFromNumber(backColor);
    const QPalette desktop = QGuiApplication::palette();
    QPalette palette = q.palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, back);
        palette.setColor(group, QPalette::Text, fore);
        const QColor highlight = desktop.color(group, QPalette::Highlight);
        const bool visible = std::abs(Brightness(highlight) - Brightness(back)) >= visibleDifference;
        palette.setColor(group, QPalette::Highlight, visible ? highlight : fore);
        palette.setColor(group, QPalette::HighlightedText,
                         visible ? desktop.color(group, QPalette::HighlightedText) : back);
    }
    q.setPalette(palette);
}

void EditSurface::SetRightMargin(int twips) {
    d_->rightMargin = std::max(twips, 0);
    setLineWrapMode(d_->rightMargin >= noWrapMargin ? NoWrap : WidgetWidth);
    d_->ApplyRightMargin();
}

int EditSurface::RightMargin() const {
    return d_->rightMargin;
}

void EditSurface::Private::ApplyRightMargin() {
    int strip = 0;
    if (rightMargin < noWrapMargin) {
        const int padding = static_cast<int>(std::ceil(q.document()->documentMargin()));
        const int available = q.viewport()->width() + q.viewportMargins().right();
        strip = std::max(0, available - PixelsFromTwips(rightMargin) - 2 * padding);
    }
    if (strip != q.viewportMargins().right()) q.setViewportMargins(0, 0, strip, 0);
}

void EditSurface::resizeEvent(QResizeEvent* event) {
    // A visible viewport that gets another width by the margin reports that itself, from within. One that is just being
    // shown doesn't, so the toolkit lays out after the margin is set.
    const int width = viewport()->width();
    d_->ApplyRightMargin();
    if (viewport()->width() != width && viewport()->isVisible()) return;
    QPlainTextEdit::resizeEvent(event);
}

void EditSurface::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange && d_) d_->ApplyColors();
}

}  // namespace vellum
