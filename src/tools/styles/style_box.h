// What style values come to on the screen: the fonts, colors and lengths that a sample of an element is painted with.
#pragma once

#include "tools/styles/style_sheets.h"

#include <QColor>
#include <QFont>
#include <QTextCharFormat>

#include <optional>

namespace vellum {

enum StyleSide { TopSide, RightSide, BottomSide, LeftSide };

struct StyleEdge {
    double width = 3;
    QString style = QStringLiteral("none");
    QColor color = {};  // the text's, where it is invalid
};

// Lengths are pixels of the page.
struct StyleBox {
    double room = 0;  // the width of what the element stands in
    QFont font;
    std::optional<double> lineHeight;
    double indent = 0;
    Qt::Alignment alignment;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    QTextCharFormat::VerticalAlignment vertical = QTextCharFormat::AlignNormal;
    QColor color = Qt::black;
    QColor background;  // invalid for none
    std::array<StyleEdge, 4> edges;
    std::array<std::optional<double>, 4> margins{0, 0, 0, 0};  // nothing where it is "auto"
    std::array<double, 4> padding{};
    std::optional<double> width;
    std::optional<double> height;
    double left = 0;
    double top = 0;
    QString position;
    QString display = QStringLiteral("block");
    QString side;  // that it floats to
    QString marker = QStringLiteral("disc");
    bool markerInside = false;
    bool clips = false;
    bool hidden = false;
    QString cursor;

    [[nodiscard]] double EdgeWidth(StyleSide side) const;  // 0 where no border is drawn
    [[nodiscard]] double Around(StyleSide side) const;     // border and padding
};

// The element as browsers show it without a style sheet, with the values on top. What the values don't make sense in is
// left out, as browsers do. `room` is the width of what it stands in.
[[nodiscard]] StyleBox StyledBox(const QString& element, const StyleValues& values, double room);

// The names of the properties among `values` that a sample of one element can't show.
[[nodiscard]] QStringList UnseenProperties(const StyleValues& values);

// A color of a style sheet; nothing when the text is none.
[[nodiscard]] std::optional<QColor> StyleColor(const QString& text);

}  // namespace vellum
