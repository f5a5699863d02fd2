#include "surface/surface_text.h"

#include "surface/composition.h"
#include "surface/document_text.h"
#include "surface/format_layouts.h"
#include "values/text_difference.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace vellum {
namespace {

// How many characters each line has, without its line end.
std::vector<int> LineLengths(const QString& text) {
    std::vector<int> lengths;
    lengths.reserve(static_cast<std::size_t>(text.count(u'\n')) + 1);
    qsizetype start = 0;
    for (qsizetype end = 0; end >= 0; start = end + 1) {
        end = text.indexOf(u'\n', start);
        lengths.push_back(static_cast<int>((end < 0 ? text.size() : end) - start));
    }
    return lengths;
}

}  // namespace

SurfaceText::SurfaceText(QPlainTextEdit& edit, FormatStore& formats, FormatLayouts& layouts, Composition& composition)
    : edit_(edit), formats_(formats), layouts_(layouts), composition_(composition) {
    connect(edit.document(), &QTextDocument::contentsChange, this, &SurfaceText::OnContentsChange);
    connect(edit.document(), &QTextDocument::contentsChanged, this, &SurfaceText::OnContentsChanged);
    connect(&edit, &QPlainTextEdit::cursorPositionChanged, this, &SurfaceText::OnCaretMoved);
    connect(&edit, &QPlainTextEdit::selectionChanged, this, &SurfaceText::OnCaretMoved);
}

QString SurfaceText::Raw() const {
    if (!untouched_.isNull()) return untouched_;
    return FromDocumentText(edit_.document()->toRawText(), *edit_.document(), 0);
}

int SurfaceText::RawLength() const {
    return edit_.document()->characterCount() - 1;
}

TextPlace SurfaceText::PlaceOf(int position) const {
    const QTextBlock block = edit_.document()->findBlock(position);
    return {block.blockNumber(), position - block.position()};
}

void SurfaceText::Set(const QString& text) {
    const DocumentText plain = ToDocumentText(text);
    Fill(plain, KeptLineEnds(plain.text));
}

void SurfaceText::Load(const QString& text, LineEnd usual, std::span<const OtherLineEnd> others) {
    usualLineEnd_ = usual;
    Fill(ToDocumentText(text), others);
}

std::vector<OtherLineEnd> SurfaceText::KeptLineEnds(const QString& text) const {
    std::vector<OtherLineEnd> kept = formats_.OtherLineEnds(usualLineEnd_);
    if (kept.empty()) return kept;
    const int before = formats_.LineCount();
    const int after = static_cast<int>(text.count(u'\n')) + 1;
    if (before == after) return kept;
    const TextDifference difference = DifferenceBetween(ToDocumentText(Raw()).text, text);
    const QStringView begin = QStringView(text).first(difference.later.offset);
    const QStringView end = QStringView(text).sliced(difference.later.End());
    const int first = static_cast<int>(begin.count(u'\n'));
    const int last = static_cast<int>(end.count(u'\n'));
    std::erase_if(kept, [&](const OtherLineEnd& each) { return each.line >= first && each.line < before - 1 - last; });
    for (OtherLineEnd& each : kept) {
        if (each.line >= first) each.line += after - before;
    }
    return kept;
}

void SurfaceText::Fill(const DocumentText& plain, std::span<const OtherLineEnd> lineEnds) {
    const int removed = RawLength();
    const std::vector<int> lengths = LineLengths(plain.text);
    const bool recorded = history_.Records();
    const QString before = recorded ? Raw() : QString();
    composition_.End(false);
    source_ = Source::Filling;
    edit_.document()->clear();  // so that no format of an old character clings to the new ones
    if (!plain.text.isEmpty()) edit_.setPlainText(plain.text);
    MarkStandIns(*edit_.document(), 0, plain);
    edit_.moveCursor(QTextCursor::Start);
    source_ = Source::Toolkit;
    untouched_ = RawTextOf(plain);
    if (recorded) history_.RecordAll(before, untouched_);

    formats_.Reset(lengths, usualLineEnd_, lineEnds);
    insertion_.reset();
    layouts_.MarkAllOutdated();
    for (std::size_t index = 0; index < lengths.size(); ++index) {
        const int line = static_cast<int>(index);
        if (lengths[index] >= overlongLine) layouts_.UpdateOverlong(line, line);
    }
    ++revision_;
    emit Replaced(0, removed, untouched_);
    ReportChange();
    OnCaretMoved();
}

void SurfaceText::Replace(const TextRange& range, const QString& text, const CharFormat& format,
                          std::span<const OtherLineEnd> lineEnds) {
    if (range.length == 0 && text.isEmpty()) return;
    composition_.End(false);
    const DocumentText plain = ToDocumentText(text);
    if (history_.Records()) {
        history_.Record(range.offset, ReadDocument(*edit_.document(), range), static_cast<int>(plain.text.size()));
    }
    QTextCursor cursor(edit_.document());
    arriving_ = format;
    arrivingLineEnds_.assign(lineEnds.begin(), lineEnds.end());
    source_ = Source::Replacing;
    cursor.beginEditBlock();
    Insert(cursor, range, plain);
    cursor.endEditBlock();
    source_ = Source::Toolkit;
    arriving_.reset();
    arrivingLineEnds_.clear();
    insertion_.reset();
    emit Replaced(range.offset, range.length, RawTextOf(plain));
    edit_.setTextCursor(cursor);
    if (unreported_) ReportChange();
    if (!lineEnds.empty()) emit LineEndsRestored();
}

void SurfaceText::ReplaceSelection(const QString& text) {
    Replace(SelectedRange(edit_.textCursor()), text, InsertionFormat());
}

void SurfaceText::RewriteSelection(const QString& text, int firstLineEnd) {
    const TextRange range = SelectedRange(edit_.textCursor());
    const int firstLine = PlaceOf(range.offset).line;
    const int lastLine = PlaceOf(range.End()).line;
    std::vector<OtherLineEnd> lineEnds;
    for (int line = firstLine; line < lastLine; ++line) {
        lineEnds.push_back({firstLineEnd + line - firstLine, formats_.LineEndOf(line).value_or(usualLineEnd_)});
    }
    Replace(range, text, InsertionFormat(), lineEnds);
}

void SurfaceText::Insert(QTextCursor& cursor, const TextRange& range, const DocumentText& text) {
    cursor.setPosition(range.offset);
    cursor.setPosition(range.End(), QTextCursor::KeepAnchor);
    cursor.insertText(text.text, QTextCharFormat());
    MarkStandIns(*edit_.document(), range.offset, text);
}

CharFormat SurfaceText::InsertionFormat() const {
    const QTextCursor cursor = edit_.textCursor();
    if (cursor.hasSelection()) return formats_.FormatAt(PlaceOf(cursor.selectionStart()));
    if (insertion_) return *insertion_;
    return FormatBefore(PlaceOf(cursor.position()));
}

CharFormat SurfaceText::FormatBefore(TextPlace place) const {
    if (place.column > 0) return formats_.FormatAt({place.line, place.column - 1});
    if (place.line > 0) return formats_.FormatAt({place.line - 1, formats_.LineLength(place.line - 1)});
    return formats_.Base();
}

QString SurfaceText::HandOut() {
    const TextRange range = SelectedRange(edit_.textCursor());
    handedOut_ = {range.offset, ReadDocument(*edit_.document(), range), revision_};
    return handedOut_.text;
}

SurfaceHistory::Snapshot SurfaceText::TakeSnapshot() {
    return history_.Take(formats_);
}

bool SurfaceText::Restore(const SurfaceHistory::Snapshot& snapshot) {
    composition_.End(false);
    const bool mixedBefore = !formats_.OtherLineEnds(usualLineEnd_).empty();
    source_ = Source::Restoring;
    layouts_.MarkAllOutdated();
    QTextCursor cursor(edit_.document());
    cursor.beginEditBlock();
    const auto replace = [this, &cursor](int position, int length, const QString& text) {
        const TextRange range{position, length};
        QString before = ReadDocument(*edit_.document(), range);
        Insert(cursor, range, ToDocumentText(text));
        untouched_.clear();
        emit Replaced(position, length, text);
        return before;
    };
    const bool restored = history_.Restore(snapshot, formats_, replace);
    cursor.endEditBlock();
    if (restored) {
        cursor = edit_.textCursor();
        if (cursor.hasSelection()) {
            cursor.clearSelection();
            edit_.setTextCursor(cursor);
        }
        insertion_.reset();
        ++revision_;
    }
    source_ = Source::Toolkit;
    if (!restored) return false;
    ReportChange();
    if (mixedBefore || !formats_.OtherLineEnds(usualLineEnd_).empty()) emit LineEndsRestored();
    OnCaretMoved();
    return true;
}

void SurfaceText::OnContentsChange(int position, int removed, int added) {
    if (source_ == Source::Filling) return;
    const QTextBlock first = edit_.document()->findBlock(position);
    const int line = first.blockNumber();
    if (source_ == Source::Restoring) {
        layouts_.UpdateOverlong(line, edit_.document()->findBlock(position + added).blockNumber());
        return;
    }
    if (composition_.Changes() && source_ == Source::Toolkit && removed == added) {
        layouts_.MarkOutdated(line, line);
        return;
    }
    untouched_.clear();
    if (source_ == Source::Toolkit) RecordToolkitChange(position, removed, added);
    const int lastLine = ChangeFormats(first, position, removed, added).blockNumber();
    layouts_.MarkOutdated(line, lastLine);
    layouts_.UpdateOverlong(line, lastLine);
    ++revision_;
    unreported_ = true;
    if (source_ == Source::Toolkit) {
        const int length = std::min(added, RawLength() - position);
        emit Replaced(position, removed, ReadDocument(*edit_.document(), {position, length}));
    }
}

QTextBlock SurfaceText::ChangeFormats(const QTextBlock& first, int position, int removed, int added) {
    const TextPlace from{first.blockNumber(), position - first.position()};
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
    const CharFormat format = arriving_ ? *arriving_ : insertion_ ? *insertion_ : FormatBefore(from);
    formats_.Replace(from, formats_.Advance(from, removed), pieces, format, usualLineEnd_);
    for (const OtherLineEnd& each : arrivingLineEnds_) {
        if (each.line + 1 < static_cast<int>(pieces.size())) formats_.SetLineEnd(from.line + each.line, each.end);
    }
    return last;
}

void SurfaceText::RecordToolkitChange(int position, int removed, int added) {
    const bool known =
        handedOut_.revision == revision_ && handedOut_.position == position && handedOut_.text.size() == removed;
    if (removed > 0 && known) emit TakenAway();
    // What went out is gone by now: it can be told only when it is known from before.
    if (removed == 0 || known) {
        history_.Record(position, removed == 0 ? QString() : handedOut_.text, added);
    } else {
        history_.Forget();
    }
}

void SurfaceText::OnContentsChanged() {
    if (unreported_ && source_ != Source::Replacing) ReportChange();
}

void SurfaceText::ReportChange() {
    unreported_ = false;
    emit Changed();
}

void SurfaceText::OnCaretMoved() {
    if (source_ == Source::Filling || source_ == Source::Restoring) return;
    const QTextCursor cursor = edit_.textCursor();
    if (cursor.anchor() == knownAnchor_ && cursor.position() == knownCaret_) return;
    knownAnchor_ = cursor.anchor();
    knownCaret_ = cursor.position();
    composition_.End(false);
    insertion_.reset();
    emit CaretMoved();
}

}  // namespace vellum
