// A button that shows a colour and keeps its number.
#pragma once

#include "values/units.h"

#include <QPushButton>

namespace vellum {

class ColorSwatch : public QPushButton {
    Q_OBJECT
public:
    explicit ColorSwatch(QWidget* parent = nullptr);

    [[nodiscard]] ColorNumber Color() const { return color_; }
    void SetColor(ColorNumber color);  // also tells it, as "#RRGGBB", to the pointer and to the screen reader

private:
    ColorNumber color_ = 0;
};

}  // namespace vellum
