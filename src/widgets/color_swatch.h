// A button that shows a colour, keeps its number, and asks for another when it is pressed.
#pragma once

#include "values/units.h"

#include <QPushButton>

namespace vellum {

class Prompts;

class ColorSwatch : public QPushButton {
    Q_OBJECT
public:
    explicit ColorSwatch(Prompts& prompts, QWidget* parent = nullptr);

    [[nodiscard]] ColorNumber Color() const { return color_; }
    void SetColor(ColorNumber color);  // also tells it, as "#RRGGBB", to the pointer and to the screen reader
    void SetNone();                    // shows that no colour is set; the colour dialog starts with black then

signals:
    void ColorChanged(ColorNumber color);

private:
    // Crossed out where there is none.
    void ShowColor(const QColor& color);

    ColorNumber color_ = 0;
};

}  // namespace vellum
