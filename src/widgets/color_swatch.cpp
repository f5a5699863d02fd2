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
    ShowColor(ColorFromNumber(color));
    emit ColorChanged(color);
}

void ColorSwatch::SetNone() {
    color_ = 0;
    ShowColor({});
}

void ColorSwatch::ShowColor(const QColor& color) {
    QPixmap pixmap(iconSize() * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(color.isValid() ? color : Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(Qt::gray);  // seen against a light button as against a dark one
    const QRect edge = QRect(QPoint(0, 0), iconSize()).adjusted(0, 0, -1, -1);
    painter.drawRect(edge);
    if (!color.isValid()) painter.drawLine(edge.bottomLeft(), edge.topRight());
    painter.end();
    setIcon(pixmap);
    const QString told = color.isValid() ? color.name().toUpper() : tr("No color");
    setToolTip(told);
    setAccessibleDescription(told);
}

}  // namespace vellum
