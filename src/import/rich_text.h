// Text with formats: what a word processor's file holds of it, as far as this program shows and writes it.
#pragma once

#include "values/units.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstdint>
#include <vector>

namespace vellum {

// The format of characters. A long text has many of these, so the font is a number, too.
struct RichFormat {
    std::uint16_t font = 0;         // index into RichText::fonts
    std::uint16_t halfPoints = 24;  // the size: 21 is 10.5 points
    ColorNumber color = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;

    [[nodiscard]] double Points() const { return halfPoints / 2.0; }
    bool operator==(const RichFormat&) const = default;
};

// From an offset to that of the next run, or to the end of the text.
struct RichRun {
    int offset = 0;
    RichFormat format;

    bool operator==(const RichRun&) const = default;
};

enum class RichAlignment : std::uint8_t { Left, Right, Center };

struct RichParagraph {
    RichAlignment alignment = RichAlignment::Left;
    bool bullet = false;

    bool operator==(const RichParagraph&) const = default;
};

// Offsets count from 0, and a line end is two characters, CR and LF, neither of which stands alone. Each line is a
// paragraph.
struct RichText {
    QString text;
    QStringList fonts{QStringLiteral("Times New Roman")};  // names in the order of their first use, each once
    // At least one, in ascending order from offset 0, no two neighbours in the same format. A line end has the format
    // of the character before it. On an empty line it has that of the line itself; if that is the last line, the format
    // stands in a run that starts where the text ends.
    std::vector<RichRun> runs{RichRun{}};
    std::vector<RichParagraph> paragraphs{RichParagraph{}};  // one for each line

    bool operator==(const RichText&) const = default;
};

// Text with CR LF line ends, all of it in one font.
[[nodiscard]] RichText PlainRichText(const QString& text, const QString& font, double points);

// Makes a rich text from its beginning to its end: AddText and EndParagraph by turns.
class RichTextBuilder {
public:
    // The number of a font, for RichFormat::font. Past 65535 different names it is that of the first one.
    [[nodiscard]] std::uint16_t FontNumber(const QString& name);

    // Adds to the line. The text has no line ends.
    void AddText(QStringView text, const RichFormat& format);
    // Ends the line; the next one begins with what is added after it. `format` counts when the line is empty.
    void EndParagraph(const RichParagraph& paragraph, const RichFormat& format);

    // True when nothing was added since the beginning or the last EndParagraph.
    [[nodiscard]] bool AtLineStart() const { return atLineStart_; }
    [[nodiscard]] bool HasParagraphs() const { return !rich_.paragraphs.empty(); }

    // Hands the text out. The last paragraph has to be ended before; a text of no paragraph is an empty one.
    [[nodiscard]] RichText Take();

private:
    void BeginLine(const RichFormat& format);
    void KeepUsedFonts();

    RichText rich_{.fonts = {}, .paragraphs = {}};
    QHash<QString, std::uint16_t> fontNumbers_;
    bool atLineStart_ = true;
};

}  // namespace vellum
