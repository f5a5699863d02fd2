// What kind of place the caret is in, told from the text around it.
#pragma once

#include <QString>
#include <QStringView>

namespace vellum {

class EditSurface;

enum class PlaceKind {
    Plain = 0,    // outside everything
    Tag = 1,      // from just behind a "<" to just before its ">"
    Comment = 2,  // in a "<!--" comment
    Region = 3,   // in the body of a script or style region
    Server = 4,   // in a "<%" block
};

// Positions count from 1.
struct PosInfo {
    PlaceKind kind = PlaceKind::Plain;
    int start = -1;  // the "<" of the tag, comment or block; the ">" that ends a region's opening tag
    int end = -1;    // the ">" of the tag, 100000 when there is none; only for a tag

    bool operator==(const PosInfo&) const = default;
};

// `pos` is the caret's offset plus 1. Looks at most 12000 characters back and, in a place so far from the start of the
// text, 2000 ahead.
[[nodiscard]] PosInfo FindPosInfo(QStringView text, int pos);

// The same as text: the kind as a digit, `start`, and for a tag `end`, joined by tabs.
[[nodiscard]] QString GetPosInfo(const QString& text, int pos);

// The place of the surface's caret, by the text around it and without a copy of the whole.
[[nodiscard]] PosInfo PosInfoAtCaret(const EditSurface& surface);

}  // namespace vellum
