// Text effects out of plain markup: layers, a wave, and ramps of color.
#pragma once

#include "values/units.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace vellum {

struct LayeredText {
    QString text;
    QString font = QStringLiteral("Arial");
    QString size = QStringLiteral("30");  // points
    ColorNumber front = 0x000000;
    ColorNumber back = 0xC0C0C0;
};

struct SlopedText {
    QString text;
    int smallest = 1;  // sizes of fonts, from 1 to 7
    int largest = 1;
};

struct GradientDivider {
    QString height = QStringLiteral("5");  // pixels
    QString steps = QStringLiteral("10");
    ColorNumber first = 0x000000;
    ColorNumber last = 0x0000FF;
};

struct GradientText {
    QString text;
    QString size = QStringLiteral("12pt");  // in points also without a unit; empty for the page's own
    ColorNumber first = 0x000000;
    ColorNumber last = 0x0000FF;
};

// The text twice, the second over the first and a little to the right.
[[nodiscard]] QString LayeredTextMarkup(const LayeredText& fields);
// How far down from the end of the first layer the second starts, in pixels; it is negative. The size is in points.
[[nodiscard]] double LayerMargin(double size);

// A character of a wave; none after the end of the text, up to which the last wave runs on.
struct SlopedCharacter {
    QString character;
    int size;
};

// Needs a largest size that isn't below the smallest.
[[nodiscard]] std::vector<SlopedCharacter> SlopedCharacters(const SlopedText& fields);
[[nodiscard]] QString SlopedTextMarkup(const SlopedText& fields);

// The whole number that the text of the steps stands for; 0 when it is none or too large for one.
[[nodiscard]] int DividerSteps(const GradientDivider& fields);
[[nodiscard]] QString GradientDividerMarkup(const GradientDivider& fields);

[[nodiscard]] QString GradientTextMarkup(const GradientText& fields);

// The characters of a text. One that takes two places in it stays whole.
[[nodiscard]] QStringList CharactersOf(const QString& text);

}  // namespace vellum
