// Coloured text as one can write and read it: «o:<p>»text«o:</p>».
#pragma once

#include "editor/markup_scan.h"

#include <QString>

namespace vellum::test {

// A letter for each character:
//   t table tag   f frame tag   l anchor   c comment or body of a region   o other tag
//   a server-side block in bold   n such a block that isn't   b plain text in bold   . plain text
struct MarkedText {
    QString text;
    QString letters;
};

// The colours that the tests paint with.
inline constexpr MarkupColors markColors{.tables = 0x000001,
                                         .frames = 0x000002,
                                         .links = 0x000003,
                                         .comments = 0x000004,
                                         .other = 0x000005,
                                         .asp = 0x000006,
                                         .off = false,
                                         .aspBold = true};
inline constexpr ColorNumber markForeColor = 0;

[[nodiscard]] MarkedText FromMarks(const QString& marked);
// Neighbours with the same letter share one mark. CR isn't shown.
[[nodiscard]] QString ToMarks(const MarkedText& text);
[[nodiscard]] QChar LetterOf(ColorNumber color, bool bold);

}  // namespace vellum::test
