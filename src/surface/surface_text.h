// The text of an edit surface. Whatever changes it, its formats, the spelling of its line ends, their layouts and its
// earlier versions follow.
//
// Positions and ranges are the document's: they count from 0, and a line end as one character.
#pragma once

#include "surface/format_store.h"
#include "surface/surface_history.h"
#include "values/text_range.h"

#include <QObject>
#include <QString>

#include <optional>
#include <span>
#include <vector>

class QPlainTextEdit;
class QTextBlock;
class QTextCursor;

namespace vellum {

class Composition;
class FormatLayouts;
struct DocumentText;

class SurfaceText : public QObject {
    Q_OBJECT
public:
    // All outlive this.
    SurfaceText(QPlainTextEdit& edit, FormatStore& formats, FormatLayouts& layouts, Composition& composition);

    [[nodiscard]] QString Raw() const;    // with "\n" at line ends
    [[nodiscard]] int RawLength() const;  // how many characters that has
    [[nodiscard]] TextPlace PlaceOf(int position) const;
    [[nodiscard]] quint64 Revision() const { return revision_; }  // every change of the text raises it

    // Replaces everything; the caret goes to the start and all formats to the base format. With as many lines as before
    // each one goes on ending as it did; else those do that both texts begin and end with.
    void Set(const QString& text);
    // The same for a text out of a file: lines end in `usual`, those to come too, but for `others`, which ascend.
    void Load(const QString& text, LineEnd usual, std::span<const OtherLineEnd> others);
    void SetUsualLineEnd(LineEnd end) { usualLineEnd_ = end; }

    // The one way of text into the document and out of it, but for what the toolkit does on its own. The caret goes
    // after the new text. Its line ends are the usual ones but for `lineEnds`, whose lines count from its first.
    void Replace(const TextRange& range, const QString& text, const CharFormat& format,
                 std::span<const OtherLineEnd> lineEnds = {});
    void Remove(const TextRange& range) { Replace(range, QString(), {}); }
    void ReplaceSelection(const QString& text);
    // The selection's line ends, in their order, stay those of `text` from one on, which counts from 0.
    void RewriteSelection(const QString& text, int firstLineEnd);

    // What text takes that replaces the selection: its first character's format. With nothing selected it is that of
    // the character before the caret, until another is set.
    [[nodiscard]] CharFormat InsertionFormat() const;
    // Until the caret moves; empty ends that at once.
    void SetInsertionFormat(const std::optional<CharFormat>& format) { insertion_ = format; }

    // The selected text, to be copied or dragged: dragged into another window, the toolkit takes it away by itself.
    [[nodiscard]] QString HandOut();

    [[nodiscard]] SurfaceHistory::Snapshot TakeSnapshot();
    // As one change of the text. False, and no change, when there is no way to the snapshot.
    bool Restore(const SurfaceHistory::Snapshot& snapshot);

signals:
    // What Changed tells later on, piece by piece and in order: `text`, as Raw() has it, stands at `position` in the
    // place of `removed` characters.
    void Replaced(int position, int removed, const QString& text);
    void Changed();
    // The line ends aren't what was told: some that came in are not the usual ones. Follows Changed.
    void LineEndsRestored();
    void CaretMoved();
    // The toolkit took away what was handed out. A snapshot that is taken now is one of the text before.
    void TakenAway();

private:
    // Who is changing the document: the toolkit, by itself, or one of our functions. While it restores
    // a snapshot, the formats are there before the text.
    enum class Source { Toolkit, Replacing, Filling, Restoring };

    void Fill(const DocumentText& plain, std::span<const OtherLineEnd> lineEnds);
    // The line ends that stay when `text` takes the place of everything.
    [[nodiscard]] std::vector<OtherLineEnd> KeptLineEnds(const QString& text) const;
    // In place of what stands there.
    void Insert(QTextCursor& cursor, const TextRange& range, const DocumentText& text);
    [[nodiscard]] CharFormat FormatBefore(TextPlace place) const;  // of the character before it; the base at the start
    void OnContentsChange(int position, int removed, int added);
    // The formats follow a change at `position`, which is in `first`. Answers the last block that it reaches.
    QTextBlock ChangeFormats(const QTextBlock& first, int position, int removed, int added);
    void RecordToolkitChange(int position, int removed, int added);
    void OnContentsChanged();
    void OnCaretMoved();
    void ReportChange();

    QPlainTextEdit& edit_;
    FormatStore& formats_;
    FormatLayouts& layouts_;
    Composition& composition_;
    SurfaceHistory history_;
    QString untouched_;  // Raw() as it was set, until it is edited; else null
    quint64 revision_ = 0;
    Source source_ = Source::Toolkit;
    bool unreported_ = false;
    std::optional<CharFormat> insertion_;  // what the next typed characters take, until the caret moves
    std::optional<CharFormat> arriving_;   // what the text being inserted takes
    std::vector<OtherLineEnd> arrivingLineEnds_;
    LineEnd usualLineEnd_ = LineEnd::CrLf;
    int knownAnchor_ = 0;
    int knownCaret_ = 0;
    struct {
        int position = -1;
        QString text;
        quint64 revision = 0;
    } handedOut_;
};

}  // namespace vellum
