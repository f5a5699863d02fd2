#include "widgets/color_swatch.h"

#include "widgets/prompts.h"

#include <QPainter>
#include <QPixmap>

namespace vellum {

ColorSwatch::ColorSwatch(Prompts& prompts, QWidget* parent) : QPushButton(parent) {
    const int height = fontMetrics().height();
    setIconSize(QSize(height * 3, height));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    SetColor(0);
    connect(this, &QPushButton::clicked, this, [this, &prompts] {
        if (const auto chosen = prompts.PickColor(window(), color_)) SetColor(*chosen);
    });
}

void ColorSwatch::SetColor(ColorNumber color) {
    color_ = color;
    const QColor shown = ColorFromNumber(color);
    QPixmap pixmap(iconSize() * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(shown);
    QPainter painter(&pixmap);
    painter.setPen(Qt::gray);  // seen against a light button as against a dark one
    painter.drawRect(QRect(QPoint(0, 0), iconSize()).adjusted(0, 0, -1, -1));
    painter.end();
    setIcon(pixmap);
    setToolTip(shown.name().toUpper());
    setAccessibleDescription(shown.name().toUpper());
    emit ColorChanged(color);
}

}  // namespace vellum
