// A page in a well-known editor, which colours it with its own lexer for HTML: what ours is measured against.
#pragma once

#include <QString>
#include <Qsci/qsciscintilla.h>

namespace vellum::bench {

class ScintillaPage : public QsciScintilla {
public:
    // Shown in that size, and coloured as far as it shows.
    ScintillaPage(const QString& text, const QSize& size, const QFont& font);

    // Colours all of it, whatever was coloured before.
    void ColorAll();
};

}  // namespace vellum::bench
