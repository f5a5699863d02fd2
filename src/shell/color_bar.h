// The colour bar: a row of filled boxes; a press on one takes its colour.
//
// Places are in twips from the bar's top left corner, where the row begins.
#pragma once

#include "shell/layout.h"
#include "values/units.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace vellum {

class TabStrip;

// The colours of the boxes from the left: ramps of five steps, and white.
[[nodiscard]] const std::vector<ColorNumber>& ColorBoxes();

// The place of a box, from 0.
[[nodiscard]] TwipRect ColorBoxRect(int box);

// The box at a place, from 0; nothing beside the boxes.
[[nodiscard]] std::optional<int> ColorBoxAt(int left, int top);

// What a press takes: the colour at its place, which beside the boxes is that of the bar itself. Nothing to the right
// of where the bar answers.
[[nodiscard]] std::optional<ColorNumber> ColorTakenAt(int left, int top, ColorNumber background);

// By keyboard, the arrow keys, Home and End mark a box; Return and Space take it.
class ColorBar : public QWidget {
    Q_OBJECT
public:
    explicit ColorBar(QWidget* parent = nullptr);

    TabStrip* const clrbutton;  // to the right of the boxes

signals:
    void ColorTaken(ColorNumber color);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Mark(int box);

    int marked_ = 0;  // from 0
};

}  // namespace vellum
