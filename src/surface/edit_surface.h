// The source editor's surface: plain text with a colour and a weight for every character.
//
// Offsets count from 0, and a line end counts as two characters (CR and LF), although the document below holds one.
// An offset between the two means the end of the line.
#pragma once

#include "surface/format_store.h"
#include "surface/surface_history.h"
#include "values/text_range.h"
#include "values/units.h"

#include <QPlainTextEdit>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace vellum {

class SurfaceHandlers;

// A right margin in twips from which on nothing wraps.
inline constexpr int noWrapMargin = 1000000;

class EditSurface : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit EditSurface(QWidget* parent = nullptr);
    ~EditSurface() override;

    // The whole text with CR LF line ends. A copy: costs what the text is long.
    [[nodiscard]] QString Text() const;
    // Replaces everything; the caret goes to offset 0 and all formats to the base format. With as many lines as before
    // each one goes on ending as it did; else those do that both texts begin and end with.
    void SetText(const QString& text);
    // `length` characters from `offset`, cut at the end of the text.
    [[nodiscard]] QString Mid(int offset, int length) const;
    [[nodiscard]] int Length() const;

    // The caret when nothing is selected, else the selection's first character.
    [[nodiscard]] int SelStart() const;
    // Moves the caret, and drops the selection. Cut to 0 .. Length().
    void SetSelStart(int offset);
    [[nodiscard]] int SelLength() const;
    // Selects `length` characters from SelStart(), cut at the end of the text.
    void SetSelLength(int length);
    [[nodiscard]] QString SelText() const;
    // Replaces the selection; the new text takes the insertion format, and the caret stands after it.
    void SetSelText(const QString& text);
    // The same for a selection that stays in the new text, if written in another way: its line ends, in their order, go
    // on as those of `text` from one on, which counts from 0. Else line ends that come in are the usual ones.
    void RewriteSelText(const QString& text, int firstLineEnd = 0);
    // Replaces a range of RawText(), which takes the format of its first character. Caret, selection and view stay.
    void ReplaceRange(const TextRange& range, const QString& text);

    // The colour of the selection, empty when it is mixed; with nothing selected the insertion colour, which is that of
    // the character before the caret until it is set.
    [[nodiscard]] std::optional<ColorNumber> SelColor() const;
    void SetSelColor(ColorNumber color);
    [[nodiscard]] std::optional<bool> SelBold() const;
    void SetSelBold(bool bold);
    // The same in a range, cut to the text, without touching the selection.
    void SetFormat(const TextRange& range, const FormatChange& change);
    // Many of these in their order, each one on what the ones before it left. Fast when they lie close together.
    void ApplyFormats(std::span<const FormatStep> steps);
    // The formats of the whole text at once: the fast way to paint it. Runs ascend and don't overlap; what lies in none
    // takes `rest`. Their offsets are those of RawText(), where a line end counts as one character. The insertion
    // colour is again that of the character before the caret.
    void SetAllFormats(const CharFormat& rest, std::span<const FormatRun> runs);
    // The format of the character after `offset`; the base format at the end of the text.
    [[nodiscard]] CharFormat FormatAt(int offset) const;
    // All formats by line. A copy of it is cheap, and stays as it is when the text goes on changing.
    [[nodiscard]] const FormatStore& Formats() const;

    // The text and its formats as they are now, without the caret: a value that is cheap to take, to copy and to keep.
    // It costs memory for what is edited later on only.
    using Snapshot = SurfaceHistory::Snapshot;
    [[nodiscard]] Snapshot TakeSnapshot();
    // Puts text and formats back, as one change of the text. Nothing is selected then, and the caret stays beside the
    // characters where it was. False, and no change, when the snapshot is empty or of another surface, or when
    // something changed the text without this surface since.
    bool Restore(const Snapshot& snapshot);

    // The font of the whole surface: a family name and a size in points as the settings keep them.
    void SetEditorFont(const QString& family, const QString& pointSize);
    [[nodiscard]] QString SelFontName() const;
    [[nodiscard]] QString SelFontSize() const;

    void SetForeColor(ColorNumber color);  // what characters of the base format are painted with
    [[nodiscard]] ColorNumber ForeColor() const;
    void SetBackColor(ColorNumber color);
    [[nodiscard]] ColorNumber BackColor() const;

    // Searches forward from `start`, without regard to case unless told, selects the match and returns its offset; -1
    // and no change when there is none. `text` may hold line ends. A start between CR and LF passes that line end by.
    int Find(const QString& text, int start, Qt::CaseSensitivity cs = Qt::CaseInsensitive);
    // The same without selecting anything.
    [[nodiscard]] int IndexOf(const QString& text, int start, Qt::CaseSensitivity cs = Qt::CaseSensitive) const;

    // The line, from 0, that holds `offset`.
    [[nodiscard]] int GetLineFromChar(int offset) const;
    // The offset of a line's first character; lines count from 0 and are cut to those there are.
    [[nodiscard]] int LineStart(int line) const;

    // Scrolls so that `linesAbove` lines, counted as they are wrapped, stand above the caret's: fewer near the start of
    // the text and in a view too low for them, more near its end.
    void PlaceCaretLine(int linesAbove);

    // In twips from the left edge of the text; lines wrap there, or at the surface's edge when that is nearer. From
    // noWrapMargin on nothing wraps.
    void SetRightMargin(int twips);
    [[nodiscard]] int RightMargin() const;

    // A number that every change of the text raises.
    [[nodiscard]] quint64 Revision() const;

    // Text of the whole document with "\n" line ends, as the writers of files take it.
    [[nodiscard]] QString RawText() const;
    [[nodiscard]] int RawLength() const;  // how many characters that has; costs nothing
    // Replaces everything by the text of a file. How its lines end, `usual` but for `others`, which ascend, is kept
    // beside it as it is edited; line ends that come in are `usual`.
    void LoadText(const QString& text, LineEnd usual, std::span<const OtherLineEnd> others);
    void SetUsualLineEnd(LineEnd end);
    // The line ends that are not `usual`, ascending.
    [[nodiscard]] std::vector<OtherLineEnd> OtherLineEnds(LineEnd usual) const;

    // Who is asked about keys, the mouse and pasted text first; nobody at the beginning. Has to outlive the surface's
    // use.
    void SetHandlers(SurfaceHandlers* handlers);

    // Where the caret's line is painted, in pixels of the surface.
    [[nodiscard]] QRect CaretRect() const;

signals:
    // `text` stands in RawText() at `position` in the place of `removed` characters. Every piece of a change is told,
    // in order and before the change as a whole; the text between two pieces of one change is not for use.
    void Replaced(int position, int removed, const QString& text);
    void Changed();  // the text changed
    // Line ends came in that are not the usual ones, which Replaced doesn't tell; all of them are to be asked for anew.
    // Follows Changed. Where the whole text was replaced, Replaced is enough.
    void LineEndsRestored();
    void SelChanged();  // caret or selection moved

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    struct Private;

    [[nodiscard]] std::optional<TextRange> Match(const QString& text, int start, Qt::CaseSensitivity cs) const;
    void ChangeSelected(const FormatChange& change);  // the selection, or the next characters
    void ChangeFormat(const TextRange& positions, const FormatChange& change);
    void ApplyColors();
    void ApplyRightMargin();

    std::unique_ptr<Private> d_;
};

}  // namespace vellum
