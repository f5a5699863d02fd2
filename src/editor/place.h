// What kind of place the caret is in, told from the text around it.
#pragma once

#include <QStringView>

namespace vellum {

class EditSurface;

enum class PlaceKind {
    Plain = 0,    // outside everything
    Tag = 1,      // from just after a "<" to just before its ">"
    Comment = 2,  // in a "<!--" comment
    Region = 3,   // in the body of a script or style region
    Server = 4,   // in a "<%" block
};

// Positions count from 1.
struct PosInfo {
    PlaceKind kind = PlaceKind::Plain;
    int start = -1;  // the "<" of the tag, comment or block; the ">" that ends a region's opening tag
    // The ">" of a tag; only a tag has one. When none is in sight it is 100000, counted from where the window begins.
    int end = -1;

    bool operator==(const PosInfo&) const = default;
};

// `pos` is the caret's offset plus 1. Beyond position 12000 it looks through a window that begins 12000 characters
// before `pos` and is 14000 long; what opened further back doesn't count. Any text and any `pos` will do.
[[nodiscard]] PosInfo GetPosInfo(QStringView text, int pos);

// The place of the surface's caret, by the text around it and without a copy of the whole. It never looks further ahead
// than 2000 characters: a tag whose ">" is not among them has the end 100000, where GetPosInfo may know it.
[[nodiscard]] PosInfo PosInfoAtCaret(const EditSurface& surface);

}  // namespace vellum
