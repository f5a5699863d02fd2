#include "surface/edit_surface.h"

#include "settings/settings_keys.h"
#include "surface/composition.h"
#include "surface/document_text.h"
#include "surface/format_layouts.h"
#include "surface/near_text.h"
#include "surface/surface_handlers.h"
#include "surface/surface_input.h"
#include "surface/surface_look.h"
#include "surface/surface_search.h"
#include "surface/surface_text.h"
#include "surface/text_offsets.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace vellum {

// What the surface is made of; what stands further down uses what stands before it.
struct EditSurface::Private {
    explicit Private(EditSurface& surface)
        : offsets(*surface.document()),
          nearText(*surface.document()),
          layouts(surface, formats),
          composition(layouts),
          text(surface, formats, layouts, composition),
          input(surface, text, composition) {}

    TextOffsets offsets;
    NearText nearText;
    FormatStore formats;
    FormatLayouts layouts;
    Composition composition;
    SurfaceText text;
    SurfaceInput input;
    QString fontFamily;
    QString pointSize;
    ColorNumber backColor = 0xFFFFFF;
    int rightMargin = noWrapMargin;
};

EditSurface::EditSurface(QWidget* parent) : QPlainTextEdit(parent), d_(std::make_unique<Private>(*this)) {
    setUndoRedoEnabled(false);
    setAccessibleName(QStringLiteral("Source text"));
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setLineWrapMode(NoWrap);
    connect(&d_->text, &SurfaceText::Replaced, this, &EditSurface::Replaced);
    connect(&d_->text, &SurfaceText::Changed, this, &EditSurface::Changed);
    connect(&d_->text, &SurfaceText::LineEndsRestored, this, &EditSurface::LineEndsRestored);
    connect(&d_->text, &SurfaceText::CaretMoved, this, &EditSurface::SelChanged);
    connect(&d_->text, &SurfaceText::TakenAway, this, [this] {
        // It went without a key, which would have taken the snapshot.
        if (auto* const handlers = d_->input.Handlers()) static_cast<void>(handlers->KeyDown(Qt::Key_unknown, 0, true));
    });
    SetEditorFont(keys::fontName.fallback.toString(), keys::fontSize.fallback.toString());
    ApplyColors();
}

EditSurface::~EditSurface() = default;

QString EditSurface::RawText() const {
    return d_->text.Raw();
}

int EditSurface::RawLength() const {
    return d_->text.RawLength();
}

QString EditSurface::Text() const {
    return WithCrLf(RawText());
}

int EditSurface::Length() const {
    return d_->offsets.Length();
}

QString EditSurface::Mid(int offset, int length) const {
    const int begin = std::clamp(offset, 0, Length());
    const int count = std::clamp(length, 0, Length() - begin);
    const int from = d_->offsets.PositionOf(begin);
    const int to = d_->offsets.PositionOf(begin + count);
    // An offset between CR and LF has the position of the line's end: the half after it is cut or added here.
    const int ahead = begin - d_->offsets.OffsetOf(from);
    const bool halfEnd = begin + count > d_->offsets.OffsetOf(to);
    QString piece = WithCrLf(d_->nearText.Characters(from, to - from));
    if (halfEnd) piece += u'\r';
    return piece.mid(ahead, count);
}

void EditSurface::SetText(const QString& text) {
    d_->text.Set(text);
}

void EditSurface::LoadText(const QString& text, LineEnd usual, std::span<const OtherLineEnd> others) {
    d_->text.Load(text, usual, others);
}

void EditSurface::SetUsualLineEnd(LineEnd end) {
    d_->text.SetUsualLineEnd(end);
}

std::vector<OtherLineEnd> EditSurface::OtherLineEnds(LineEnd usual) const {
    return d_->formats.OtherLineEnds(usual);
}

quint64 EditSurface::Revision() const {
    return d_->text.Revision();
}

int EditSurface::SelStart() const {
    return d_->offsets.OffsetOf(textCursor().selectionStart());
}

void EditSurface::SetSelStart(int offset) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(d_->offsets.PositionOf(offset));
    setTextCursor(cursor);
}

int EditSurface::SelLength() const {
    const QTextCursor cursor = textCursor();
    return d_->offsets.OffsetOf(cursor.selectionEnd()) - d_->offsets.OffsetOf(cursor.selectionStart());
}

void EditSurface::SetSelLength(int length) {
    const int begin = SelStart();
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart());
    cursor.setPosition(d_->offsets.PositionOf(begin + std::clamp(length, 0, Length() - begin)),
                       QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

QString EditSurface::SelText() const {
    return WithCrLf(ReadDocument(*document(), SelectedRange(textCursor())));
}

void EditSurface::SetSelText(const QString& text) {
    d_->text.ReplaceSelection(text);
}

void EditSurface::RewriteSelText(const QString& text, int firstLineEnd) {
    d_->text.RewriteSelection(text, firstLineEnd);
}

void EditSurface::ReplaceRange(const TextRange& range, const QString& text) {
    const int anchor = textCursor().anchor();
    const int caret = textCursor().position();
    const int across = horizontalScrollBar()->value();
    const int down = verticalScrollBar()->value();
    d_->text.Replace(range, text, d_->formats.FormatAt(d_->text.PlaceOf(range.offset)));
    // What stood in the range goes to its end, what stood after it moves along.
    const int added = static_cast<int>(text.size()) - range.length;
    const auto moved = [&](int position) {
        return position <= range.offset ? position : std::max(position, range.End()) + added;
    };
    QTextCursor cursor = textCursor();
    cursor.setPosition(moved(anchor));
    cursor.setPosition(moved(caret), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    horizontalScrollBar()->setValue(across);
    verticalScrollBar()->setValue(down);
}

int EditSurface::GetLineFromChar(int offset) const {
    return document()->findBlock(d_->offsets.PositionOf(offset)).blockNumber();
}

int EditSurface::LineStart(int line) const {
    const int number = std::clamp(line, 0, document()->blockCount() - 1);
    return document()->findBlockByNumber(number).position() + number;
}

std::optional<TextRange> EditSurface::Match(const QString& text, int start, Qt::CaseSensitivity cs) const {
    if (start > Length()) return std::nullopt;
    const int position = d_->offsets.PositionOf(start);
    const bool inLineEnd = start > d_->offsets.OffsetOf(position);
    return FindInDocument(*document(), text, position + (inLineEnd ? 1 : 0), cs);
}

int EditSurface::IndexOf(const QString& text, int start, Qt::CaseSensitivity cs) const {
    const auto match = Match(text, start, cs);
    return match ? d_->offsets.OffsetOf(match->offset) : -1;
}

int EditSurface::Find(const QString& text, int start, Qt::CaseSensitivity cs) {
    const auto match = Match(text, start, cs);
    if (!match) return -1;
    QTextCursor cursor = textCursor();
    cursor.setPosition(match->offset);
    cursor.setPosition(match->End(), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    return d_->offsets.OffsetOf(match->offset);
}

std::optional<ColorNumber> EditSurface::SelColor() const {
    const TextRange selected = SelectedRange(textCursor());
    if (selected.length == 0) return d_->text.InsertionFormat().color.value_or(ForeColor());
    return d_->formats.CommonColor(d_->text.PlaceOf(selected.offset), d_->text.PlaceOf(selected.End()), ForeColor());
}

void EditSurface::SetSelColor(ColorNumber color) {
    ChangeSelected({.color = color, .bold = {}});
}

std::optional<bool> EditSurface::SelBold() const {
    const TextRange selected = SelectedRange(textCursor());
    if (selected.length == 0) return d_->text.InsertionFormat().bold;
    return d_->formats.CommonBold(d_->text.PlaceOf(selected.offset), d_->text.PlaceOf(selected.End()));
}

void EditSurface::SetSelBold(bool bold) {
    ChangeSelected({.color = {}, .bold = bold});
}

void EditSurface::ChangeSelected(const FormatChange& change) {
    const TextRange selected = SelectedRange(textCursor());
    if (selected.length > 0) {
        ChangeFormat(selected, change);
    } else {
        d_->text.SetInsertionFormat(change.AppliedTo(d_->text.InsertionFormat()));
    }
}

void EditSurface::SetFormat(const TextRange& range, const FormatChange& change) {
    const int begin = std::clamp(range.offset, 0, Length());
    const int count = std::clamp(range.length, 0, Length() - begin);
    const int from = d_->offsets.PositionOf(begin);
    ChangeFormat({from, d_->offsets.PositionOf(begin + count) - from}, change);
}

void EditSurface::ChangeFormat(const TextRange& positions, const FormatChange& change) {
    const TextPlace begin = d_->text.PlaceOf(positions.offset);
    const TextPlace end = d_->text.PlaceOf(positions.End());
    d_->formats.SetFormat(begin, end, change);
    if (end.line - begin.line + 1 == d_->formats.LineCount()) {
        d_->layouts.MarkAllOutdated();
    } else {
        d_->layouts.MarkOutdated(begin.line, end.line);
        viewport()->update();
    }
}

void EditSurface::ApplyFormats(std::span<const FormatStep> steps) {
    if (steps.empty()) return;
    const QTextBlock first = document()->findBlock(d_->offsets.PositionOf(steps.front().range.offset));
    PlaceFinder places(d_->formats, first.blockNumber(), d_->offsets.OffsetOf(first.position()));
    int firstLine = first.blockNumber();
    int lastLine = firstLine;
    for (const FormatStep& step : steps) {
        const TextPlace from = places.At(step.range.offset);
        const TextPlace to = places.At(step.range.End());
        if (step.ofOneColor && !d_->formats.CommonColor(from, to, ForeColor())) continue;
        d_->formats.SetFormat(from, to, step.change);
        firstLine = std::min(firstLine, from.line);
        lastLine = std::max(lastLine, to.line);
    }
    d_->layouts.MarkOutdated(firstLine, lastLine);
    viewport()->update();
}

void EditSurface::SetAllFormats(const CharFormat& rest, std::span<const FormatRun> runs) {
    d_->formats.SetAll(rest, runs);
    d_->text.SetInsertionFormat({});
    d_->layouts.MarkAllOutdated();
}

CharFormat EditSurface::FormatAt(int offset) const {
    return d_->formats.FormatAt(d_->text.PlaceOf(d_->offsets.PositionOf(offset)));
}

const FormatStore& EditSurface::Formats() const {
    return d_->formats;
}

EditSurface::Snapshot EditSurface::TakeSnapshot() {
    return d_->text.TakeSnapshot();
}

bool EditSurface::Restore(const Snapshot& snapshot) {
    return d_->text.Restore(snapshot);
}

void EditSurface::SetEditorFont(const QString& family, const QString& pointSize) {
    d_->fontFamily = family;
    d_->pointSize = pointSize;
    setFont(EditorFont(family, pointSize));
    setTabStopDistance(tabColumns * QFontMetricsF(font()).horizontalAdvance(u' '));
}

QString EditSurface::SelFontName() const {
    return d_->fontFamily;
}

QString EditSurface::SelFontSize() const {
    return d_->pointSize;
}

void EditSurface::SetForeColor(ColorNumber color) {
    d_->layouts.SetForeColor(color);
    ApplyColors();
}

ColorNumber EditSurface::ForeColor() const {
    return d_->layouts.ForeColor();
}

void EditSurface::SetBackColor(ColorNumber color) {
    d_->backColor = color;
    ApplyColors();
}

ColorNumber EditSurface::BackColor() const {
    return d_->backColor;
}

void EditSurface::ApplyColors() {
    setPalette(SurfacePalette(palette(), ForeColor(), d_->backColor));
}

void EditSurface::SetRightMargin(int twips) {
    d_->rightMargin = std::max(twips, 0);
    setLineWrapMode(d_->rightMargin >= noWrapMargin ? NoWrap : WidgetWidth);
    ApplyRightMargin();
}

int EditSurface::RightMargin() const {
    return d_->rightMargin;
}

void EditSurface::ApplyRightMargin() {
    int strip = 0;
    if (d_->rightMargin < noWrapMargin) {
        const int padding = static_cast<int>(std::ceil(document()->documentMargin()));
        const int available = viewport()->width() + viewportMargins().right();
        strip = std::max(0, available - PixelsFromTwips(d_->rightMargin) - 2 * padding);
    }
    if (strip != viewportMargins().right()) setViewportMargins(0, 0, strip, 0);
}

QRect EditSurface::CaretRect() const {
    return cursorRect().translated(viewport()->pos());
}

void EditSurface::PlaceCaretLine(int linesAbove) {
    const int linesSeen = viewport()->height() / std::max(1, fontMetrics().lineSpacing());
    const int wanted = std::clamp(linesAbove, 0, std::max(0, linesSeen - 1));
    const QTextCursor caret = textCursor();
    QTextBlock block = caret.block();
    // Where lines are wrapped shows only in a layout, and hangs on the formats.
    const auto layOut = [this](const QTextBlock& line) {
        d_->layouts.Update(line);
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
    const QTextBlock first = firstVisibleBlock();
    const qreal top = blockBoundingGeometry(first).translated(contentOffset()).top();
    d_->layouts.UpdateVisible(first, event->rect().bottom() - top);
    QPlainTextEdit::paintEvent(event);
}

bool EditSurface::event(QEvent* event) {
    if (event->type() == QEvent::Paint && viewportMargins().right() > 0) {
        // The strip beside the wrapped lines is part of the page.
        QPainter(this).fillRect(contentsRect(), palette().base());
    }
    return QPlainTextEdit::event(event);
}

void EditSurface::resizeEvent(QResizeEvent* event) {
    // A visible viewport that gets another width by the margin reports that itself, from within. One that is just being
    // shown doesn't, so the toolkit lays out after the margin is set.
    const int width = viewport()->width();
    ApplyRightMargin();
    if (viewport()->width() != width && viewport()->isVisible()) return;
    QPlainTextEdit::resizeEvent(event);
}

void EditSurface::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange && d_) ApplyColors();
}

void EditSurface::SetHandlers(SurfaceHandlers* handlers) {
    d_->input.SetHandlers(handlers);
}

void EditSurface::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly() || !d_->input.KeyPress(*event)) QPlainTextEdit::keyPressEvent(event);
}

void EditSurface::keyReleaseEvent(QKeyEvent* event) {
    QPlainTextEdit::keyReleaseEvent(event);
    d_->input.KeyRelease(*event);
}

void EditSurface::mousePressEvent(QMouseEvent* event) {
    if (!d_->input.MousePress(*event)) QPlainTextEdit::mousePressEvent(event);
}

void EditSurface::mouseDoubleClickEvent(QMouseEvent* event) {
    if (auto* const handlers = d_->input.Handlers()) handlers->MouseDown(event->button());
    QPlainTextEdit::mouseDoubleClickEvent(event);
}

void EditSurface::mouseMoveEvent(QMouseEvent* event) {
    if (auto* const handlers = d_->input.Handlers()) handlers->MouseMove();
    QPlainTextEdit::mouseMoveEvent(event);
}

void EditSurface::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (auto* const handlers = d_->input.Handlers()) handlers->MouseUp(event->button());
}

void EditSurface::contextMenuEvent(QContextMenuEvent* event) {
    // The right button has opened it already when it went down.
    auto* const handlers = d_->input.Handlers();
    if (handlers && event->reason() != QContextMenuEvent::Mouse) handlers->ContextMenu(event->globalPos());
    event->accept();
}

void EditSurface::inputMethodEvent(QInputMethodEvent* event) {
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    d_->input.Compose(*event, [this](QInputMethodEvent& shown) { QPlainTextEdit::inputMethodEvent(&shown); });
    event->accept();
    ensureCursorVisible();
}

QMimeData* EditSurface::createMimeDataFromSelection() const {
    auto* const copied = new QMimeData;
    copied->setText(d_->text.HandOut());
    return copied;
}

void EditSurface::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || source == nullptr || !source->hasText()) return;
    d_->input.Insert(source->text());
    ensureCursorVisible();
}

void EditSurface::dropEvent(QDropEvent* event) {
    // The toolkit ends its part of the dragging, and has nothing to insert.
    const QMimeData nothing;
    QDropEvent end(event->position(), event->possibleActions(), &nothing, event->buttons(), event->modifiers());
    QPlainTextEdit::dropEvent(&end);
    d_->input.Drop(*event);
}

}  // namespace vellum
