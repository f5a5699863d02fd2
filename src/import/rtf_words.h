// What the control words of RTF do.
#pragma once

#include <QByteArrayView>

#include <cstdint>

namespace vellum {

// What is done with the text of a group.
enum class RtfDestination : std::uint8_t {
    Body,
    TextBox,  // body with lines of its own
    Marker,   // the number or bullet of a list's paragraph
    Inside,   // nothing itself, but groups in it may be body
    Nothing,  // nor are they
    Fonts,
    Colors,
    Lists,
    ListOverrides,
    Numbering,
};

enum class RtfAction : std::uint8_t {
    None,
    Document,     // value: the code page that the document has; 0 where the word's number tells
    Destination,  // value: RtfDestination
    Character,    // value: a code unit
    Unicode,
    UnicodeFallback,

    Plain,
    Bold,
    Italic,
    Underline,
    NoUnderline,
    Strike,
    Hidden,
    Deleted,
    Font,
    DefaultFont,
    Size,
    Color,

    StandardParagraph,
    Alignment,  // value: RichAlignment
    InTable,
    List,
    ListLevel,
    PnKind,  // value: RtfNumbering

    Paragraph,  // the first of those that may end a line
    Line,
    Page,
    Cell,
    Row,  // the last

    FontCharset,
    FontCodePage,
    Red,
    Green,
    Blue,
    NewList,
    LevelKind,
    ListNumber,
};

// How the paragraphs of a list begin.
enum class RtfNumbering : std::uint8_t { None, Unknown, Bullet, Number };

struct RtfWord {
    RtfAction action = RtfAction::None;
    int value = 0;
};

// A word that isn't known does nothing.
[[nodiscard]] RtfWord FindRtfWord(QByteArrayView name);

}  // namespace vellum
