#include "tools/text/effect_sample.h"

#include "tools/framework/color_ramp.h"
#include "values/number_rules.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace vellum {
namespace {

// In pixels, as those of a page.
constexpr double paperMargin = 8;
constexpr double pointSize = 96.0 / 72;
constexpr double standardSize = 16;

QFont PageFont(const QString& family, double size) {
    constexpr double largest = 500;  // fills any sample
    QFont font;
    font.setFamilies({family, "serif"});
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(std::clamp(size, 1.0, largest)))));
    return font;
}

// A character after what stands there; returns where the next one goes.
double PaintCharacter(QPainter& painter, const QPointF& place, const QString& character) {
    painter.drawText(place, character);
    return place.x() + QFontMetricsF(painter.font()).horizontalAdvance(character);
}

}  // namespace

EffectSample::EffectSample(Paint paint, QWidget* parent) : QWidget(parent), paint_(std::move(paint)) {
    setAccessibleName(tr("Sample"));
}

void EffectSample::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(Qt::gray);  // an edge that is seen in light forms as in dark ones
    painter.setBrush(Qt::white);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(Qt::black);
    paint_(painter, QRectF(rect()).adjusted(paperMargin, paperMargin, -paperMargin, -paperMargin));
}

void PaintLayers(QPainter& painter, const QRectF& room, const LayeredText& fields) {
    const double size = LeadingNumber(fields.size);
    const QFont font = PageFont(fields.font, size * pointSize);
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    const QPointF first(room.left(), room.top() + metrics.ascent());
    painter.setPen(ColorFromNumber(fields.back));
    painter.drawText(first, fields.text);
    painter.setPen(ColorFromNumber(fields.front));
    painter.drawText(first + QPointF(2, metrics.height() + LayerMargin(size)), fields.text);
}

void PaintWave(QPainter& painter, const QRectF& room, const SlopedText& fields) {
    static constexpr std::array<int, 7> sizes{10, 13, 16, 18, 24, 32, 48};
    double left = room.left();
    const double baseline = room.top() + sizes.back();
    for (const auto& [character, size] : SlopedCharacters(fields)) {
        if (left > room.right()) return;
        painter.setFont(PageFont("Times New Roman", sizes.at(static_cast<std::size_t>(size - 1))));
        left = PaintCharacter(painter, {left, baseline}, character);
    }
}

void PaintDivider(QPainter& painter, const QRectF& room, const GradientDivider& fields) {
    const QStringList colors = ColorRamp(fields.first, fields.last, DividerSteps(fields));
    const double height = std::clamp(LeadingNumber(fields.height), 1.0, room.height());
    const double width = room.width() / static_cast<double>(std::max<qsizetype>(1, colors.size()));
    for (double left = room.left(); const QString& color : colors) {
        painter.fillRect(QRectF(left, room.top(), width, height), QColor(color));
        left += width;
    }
}

void PaintGradient(QPainter& painter, const QRectF& room, const GradientText& fields) {
    const QStringList characters = CharactersOf(fields.text);
    const double size = fields.size.isEmpty() ? standardSize : LeadingNumber(fields.size) * pointSize;
    painter.setFont(PageFont("Times New Roman", size));
    QPointF place(room.left(), room.top() + QFontMetricsF(painter.font()).ascent());
    const QStringList colors = ColorRamp(fields.first, fields.last, static_cast<int>(characters.size()));
    for (qsizetype i = 0; i < characters.size() && place.x() <= room.right(); ++i) {
        painter.setPen(QColor(colors.at(i)));
        place.setX(PaintCharacter(painter, place, characters.at(i)));
    }
}

}  // namespace vellum
