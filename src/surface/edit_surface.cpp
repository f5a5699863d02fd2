#include "surface/edit_surface.h"

#include "surface/document_text.h"
#include "surface/edit_surface_private.h"
#include "system/fonts.h"

#include <QTextDocument>

#include <algorithm>

namespace vellum {

EditSurface::EditSurface(QWidget* parent) : QPlainTextEdit(parent), d_(std::make_unique<Private>(*this)) {
    setUndoRedoEnabled(false);
    setAccessibleName(QStringLiteral("Source text"));
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setLineWrapMode(NoWrap);
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int position, int removed, int added) { d_->OnContentsChange(position, removed, added); });
    connect(document(), &QTextDocument::contentsChanged, this, [this] { d_->OnContentsChanged(); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { d_->OnCaretMoved(); });
    connect(this, &QPlainTextEdit::selectionChanged, this, [this] { d_->OnCaretMoved(); });
    SetEditorFont(QStringLiteral("Courier New"), QStringLiteral("8.5"));
    d_->ApplyColors();
}

EditSurface::~EditSurface() = default;

int EditSurface::Private::OffsetOf(int position) const {
    return position + q.document()->findBlock(position).blockNumber();
}

int EditSurface::Private::PositionOf(int offset) const {
    const QTextDocument& text = *q.document();
    const auto startsUpTo = [&](int line) { return text.findBlockByNumber(line).position() + line <= offset; };
    // One offset is mostly asked for near the one before: the search goes out from there in ever wider steps.
    int low = 0;
    int high = text.blockCount() - 1;
    const int known = std::min(knownLine, high);
    int step = 1;
    if (startsUpTo(known)) {
        for (low = known; low + step <= high && startsUpTo(low + step); step *= 2) low += step;
        high = std::min(high, low + step - 1);
    } else {
        for (high = known - 1; high - step >= 0 && !startsUpTo(high - step); step *= 2) high -= step;
        low = std::max(low, high - step);
    }
    while (low < high) {  // the last line that starts at or before the offset
        const int middle = low + (high - low + 1) / 2;
        if (startsUpTo(middle)) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    knownLine = std::max(low, 0);
    const QTextBlock block = text.findBlockByNumber(knownLine);
    return block.position() + std::clamp(offset - block.position() - knownLine, 0, block.length() - 1);
}

TextPlace EditSurface::Private::PlaceOf(int position) const {
    const QTextBlock block = q.document()->findBlock(position);
    return {block.blockNumber(), position - block.position()};
}

QString EditSurface::Private::Characters(int position, int length) const {
    QTextCursor cursor(q.document());
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    return FromDocumentText(cursor.selectedText(), *q.document(), position);
}

QString EditSurface::RawText() const {
    if (!d_->untouched.isNull()) return d_->untouched;
    return FromDocumentText(document()->toRawText(), *document(), 0);
}

QString EditSurface::Text() const {
    return WithCrLf(RawText());
}

int EditSurface::Length() const {
    return document()->characterCount() - 1 + document()->blockCount() - 1;
}

QString EditSurface::Mid(int offset, int length) const {
    const int begin = std::clamp(offset, 0, Length());
    const int count = std::clamp(length, 0, Length() - begin);
    const int from = d_->PositionOf(begin);
    const int to = d_->PositionOf(begin + count);
    // An offset between CR and LF has the position of the line's end: the half after it is cut or added here.
    const int ahead = begin - d_->OffsetOf(from);
    const bool halfEnd = begin + count > d_->OffsetOf(to);
    QString piece = WithCrLf(d_->around.Characters(from, to - from));
    if (halfEnd) piece += u'\r';
    return piece.mid(ahead, count);
}

void EditSurface::SetText(const QString& text) {
    DocumentText plain = ToDocumentText(text);
    std::vector<int> lengths;
    lengths.reserve(static_cast<std::size_t>(plain.text.count(u'\n')) + 1);
    qsizetype start = 0;
    for (qsizetype end = 0; end >= 0; start = end + 1) {
        end = plain.text.indexOf(u'\n', start);
        lengths.push_back(static_cast<int>((end < 0 ? plain.text.size() : end) - start));
    }

    const bool recorded = d_->history.Records();
    const QString before = recorded ? RawText() : QString();
    d_->EndComposition(false);
    d_->loading = true;
    document()->clear();  // so that no format of an old character clings to the new ones
    if (!plain.text.isEmpty()) setPlainText(plain.text);
    MarkStandIns(*document(), 0, plain);
    moveCursor(QTextCursor::Start);
    d_->loading = false;
    d_->untouched = plain.held.empty() ? plain.text : QString();
    if (recorded) d_->history.RecordAll(before, RawText());

    d_->formats.Reset(lengths);
    d_->insertion.reset();
    d_->MarkAllOutdated();
    for (std::size_t line = 0; line < lengths.size(); ++line) {
        if (lengths[line] >= overlongLine) {
            d_->HandOverlongFormats(static_cast<int>(line), static_cast<int>(line));
        }
    }
    ++d_->revision;
    d_->ReportChange();
    d_->OnCaretMoved();
}

int EditSurface::SelStart() const {
    return d_->OffsetOf(textCursor().selectionStart());
}

void EditSurface::SetSelStart(int offset) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(d_->PositionOf(offset));
    setTextCursor(cursor);
}

int EditSurface::SelLength() const {
    const QTextCursor cursor = textCursor();
    return d_->OffsetOf(cursor.selectionEnd()) - d_->OffsetOf(cursor.selectionStart());
}

void EditSurface::SetSelLength(int length) {
    const int begin = SelStart();
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart());
    cursor.setPosition(d_->PositionOf(begin + std::clamp(length, 0, Length() - begin)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

QString EditSurface::SelText() const {
    const QTextCursor cursor = textCursor();
    return WithCrLf(d_->Characters(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()));
}

void EditSurface::SetSelText(const QString& text) {
    d_->ReplaceSelection(text);
}

void EditSurface::Private::ReplaceSelection(const QString& text) {
    const QTextCursor cursor = q.textCursor();
    Replace(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart(), text, InsertionFormat());
}

void EditSurface::Private::Replace(int position, int length, const QString& text, const CharFormat& format) {
    if (length == 0 && text.isEmpty()) return;
    EndComposition(false);
    const DocumentText plain = ToDocumentText(text);
    if (history.Records()) history.Record(position, Characters(position, length), static_cast<int>(plain.text.size()));
    QTextCursor cursor(q.document());
    arriving = format;
    replacing = true;
    cursor.beginEditBlock();
    Insert(cursor, position, length, plain);
    cursor.endEditBlock();
    replacing = false;
    arriving.reset();
    insertion.reset();
    q.setTextCursor(cursor);
    if (unreported) ReportChange();
}

void EditSurface::Private::Insert(QTextCursor& cursor, int position, int length, const DocumentText& plain) {
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    cursor.insertText(plain.text, QTextCharFormat());
    MarkStandIns(*q.document(), position, plain);
}

CharFormat EditSurface::Private::InsertionFormat() const {
    const QTextCursor cursor = q.textCursor();
    if (cursor.hasSelection()) return formats.FormatAt(PlaceOf(cursor.selectionStart()));
    if (insertion) return *insertion;
    return FormatBefore(PlaceOf(cursor.position()));
}

CharFormat EditSurface::Private::FormatBefore(TextPlace place) const {
    if (place.column > 0) return formats.FormatAt({place.line, place.column - 1});
    if (place.line > 0) return formats.FormatAt({place.line - 1, formats.LineLength(place.line - 1)});
    return formats.Base();
}

void EditSurface::Private::OnContentsChange(int position, int removed, int added) {
    if (loading && !restoring) return;
    const QTextBlock first = q.document()->findBlock(position);
    const int line = first.blockNumber();
    if (restoring) {
        HandOverlongFormats(line, q.document()->findBlock(position + added).blockNumber());
        return;
    }
    if (composing && !replacing && removed == added) {
        MarkOutdated(line, line);
        return;
    }
    untouched.clear();
    if (!replacing) RecordChange(position, removed, added);
    const TextPlace from{line, position - first.position()};
    std::vector<int> pieces;
    QTextBlock last = first;
    for (int left = added, column = from.column; true; column = 0) {
        const int rest = last.length() - 1 - column;
        pieces.push_back(std::min(left, rest));
        const QTextBlock next = last.next();
        if (left <= rest || !next.isValid()) break;
        left -= rest + 1;
        last = next;
    }
    const CharFormat format = arriving ? *arriving : insertion ? *insertion : FormatBefore(from);
    const TextPlace to = formats.Advance(from, removed);
    formats.Replace(from, to, pieces, format);
    MarkOutdated(line, last.blockNumber());
    HandOverlongFormats(line, last.blockNumber());
    ++revision;
    unreported = true;
}

void EditSurface::Private::OnContentsChanged() {
    if (unreported && !replacing) ReportChange();
}

void EditSurface::Private::ReportChange() {
    unreported = false;
    emit q.Changed();
}

void EditSurface::Private::OnCaretMoved() {
    if (loading) return;
    const QTextCursor cursor = q.textCursor();
    if (cursor.anchor() == knownAnchor && cursor.position() == knownCaret) return;
    knownAnchor = cursor.anchor();
    knownCaret = cursor.position();
    EndComposition(false);
    insertion.reset();
    emit q.SelChanged();
}

int EditSurface::GetLineFromChar(int offset) const {
    return document()->findBlock(d_->PositionOf(offset)).blockNumber();
}

int EditSurface::LineStart(int line) const {
    const int number = std::clamp(line, 0, document()->blockCount() - 1);
    return document()->findBlockByNumber(number).position() + number;
}

quint64 EditSurface::Revision() const {
    return d_->revision;
}

}  // namespace vellum
