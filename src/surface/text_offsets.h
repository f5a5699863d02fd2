// Offsets of an edit surface, where a line end counts as two characters, and positions in the document below, where it
// counts as one.
#pragma once

#include "surface/format_store.h"

class QTextDocument;

namespace vellum {

class TextOffsets {
public:
    // The document outlives this.
    explicit TextOffsets(const QTextDocument& document) : document_(document) {}

    [[nodiscard]] int Length() const;  // of the text, in offsets
    [[nodiscard]] int OffsetOf(int position) const;
    // Cut to the text; an offset between CR and LF means the end of the line.
    [[nodiscard]] int PositionOf(int offset) const;

private:
    const QTextDocument& document_;
    mutable int knownLine_ = 0;  // where an offset was found last
};

// Finds the places of offsets, from line to line: a short way when the next offset isn't far from the last one.
class PlaceFinder {
public:
    // `lineStart` is the offset of the line's first character. The formats outlive this.
    PlaceFinder(const FormatStore& formats, int line, int lineStart)
        : formats_(formats), line_(line), lineStart_(lineStart) {}

    [[nodiscard]] TextPlace At(int offset);

private:
    const FormatStore& formats_;
    int line_;
    int lineStart_;
};

}  // namespace vellum
