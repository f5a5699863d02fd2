// Samples of the text effects, as a page will show them.
#pragma once

#include "tools/text/effects.h"

#include <QWidget>

#include <functional>

namespace vellum {

// White paper with what `paint` puts on it, which gets a painter and its room.
class EffectSample : public QWidget {
    Q_OBJECT
public:
    using Paint = std::function<void(QPainter& painter, const QRectF& room)>;

    explicit EffectSample(Paint paint, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Paint paint_;
};

void PaintLayers(QPainter& painter, const QRectF& room, const LayeredText& fields);
void PaintWave(QPainter& painter, const QRectF& room, const SlopedText& fields);
void PaintDivider(QPainter& painter, const QRectF& room, const GradientDivider& fields);
void PaintGradient(QPainter& painter, const QRectF& room, const GradientText& fields);

}  // namespace vellum
