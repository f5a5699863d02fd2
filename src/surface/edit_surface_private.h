// What the units of the edit surface share. Positions are the toolkit's: a line end counts as one character there.
#pragma once

#include "surface/document_text.h"
#include "surface/edit_surface.h"
#include "surface/near_text.h"
#include "surface/surface_handlers.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

namespace vellum {

// Lines of this many characters and more cost too much to be laid out and painted as others are.
inline constexpr int overlongLine = 10000;

inline constexpr int noWrapMargin = 1000000;  // twips; from here on nothing wraps

struct EditSurface::Private {
    explicit Private(EditSurface& surface) : q(surface), around(*surface.document()) {}

    EditSurface& q;
    mutable NearText around;
    FormatStore formats;
    SurfaceHistory history;
    int formatVersion = 1;                // blocks whose user state differs have layouts with outdated formats
    std::optional<CharFormat> insertion;  // what the next typed characters take, until the caret moves
    std::optional<CharFormat> arriving;   // what the text being inserted takes
    QString untouched;                    // the text as it was set, until it is edited; else null
    quint64 revision = 0;
    bool loading = false;    // the document is being filled; its reports don't count
    bool restoring = false;  // and it is being filled with a snapshot, whose formats are here already
    bool composing = false;  // an input method shows or hides what isn't text yet
    QTextCursor composed;    // where that stands, else null
    bool replacing = false;  // Replace reports the change itself
    bool unreported = false;
    int knownAnchor = 0;
    int knownCaret = 0;
    mutable int knownLine = 0;  // where an offset was found last
    QString fontFamily;
    QString pointSize;
    ColorNumber foreColor = 0;
    ColorNumber backColor = 0xFFFFFF;
    int rightMargin = noWrapMargin;
    SurfaceHandlers* handlers = nullptr;
    // What was handed out last by copying or dragging: dragged into another window, the toolkit takes it away by
    // itself.
    struct {
        int position = -1;
        QString text;
        quint64 revision = 0;
    } handedOut;

    [[nodiscard]] int OffsetOf(int position) const;
    [[nodiscard]] int PositionOf(int offset) const;
    [[nodiscard]] TextPlace PlaceOf(int position) const;
    // The positions of the next match at or after an offset, not selected; empty when there is none.
    [[nodiscard]] std::optional<std::pair<int, int>> Match(const QString& text, int start,
                                                           Qt::CaseSensitivity cs) const;
    // `length` characters from `position`, with "\n" at line ends.
    [[nodiscard]] QString Characters(int position, int length) const;

    // The one way of text into the document and out of it, but for what the toolkit does on its own. The caret goes
    // after the new text.
    void Replace(int position, int length, const QString& text, const CharFormat& format);
    void ReplaceSelection(const QString& text);
    void Insert(QTextCursor& cursor, int position, int length,
                const DocumentText& plain);  // in place of what stands there
    [[nodiscard]] CharFormat InsertionFormat() const;
    [[nodiscard]] CharFormat FormatBefore(TextPlace place) const;  // of the character before it; the base at the start

    void OnContentsChange(int position, int removed, int added);
    // A change that the toolkit made by itself.
    void RecordChange(int position, int removed, int added);
    void OnContentsChanged();
    void OnCaretMoved();
    void ReportChange();

    void ChangeFormat(const FormatChange& change);  // of the selection or the next characters
    void ChangeFormat(int from, int to, const FormatChange& change);
    void MarkOutdated(int firstLine, int lastLine);
    void MarkAllOutdated();
    // Gives a block's layout the formats of its line when it has others.
    void HandFormats(QTextBlock block);
    // The same for the overlong lines among some, at once: so they aren't laid out twice, here and when painted.
    void HandOverlongFormats(int firstLine, int lastLine);
    [[nodiscard]] QList<QTextLayout::FormatRange> RangesOf(const QTextBlock& block) const;
    void HandVisibleFormats(int bottom);

    void ApplyColors();
    void ApplyRightMargin();

    [[nodiscard]] bool HandleClipboardKey(QKeyEvent* event);
    [[nodiscard]] bool HandleDeletion(QKeyEvent* event);
    [[nodiscard]] bool HandleTyping(QKeyEvent* event);
    // Characters one by one, each after the handlers were asked. "\r" is the line end.
    void Type(const QString& text, int shiftState);
    // The same for what comes without a key of its own, as from an input method.
    void TypeAsKey(const QString& text);
    // Whatever else changes the text or moves the caret ends what an input method composes. What it commits then is
    // text; else what is being composed is gone.
    void EndComposition(bool commits);
    void Drop(const QString& text, int target, bool moved);
};

}  // namespace vellum
