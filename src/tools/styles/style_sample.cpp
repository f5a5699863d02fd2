#include "tools/styles/style_sample.h"

#include <QMap>
#include <QPainter>
#include <QPainterPath>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace vellum {
namespace {

constexpr double paperMargin = 8;
constexpr auto sampleText = "Vellum is made of calfskin, and lasts. Parchment is made of the skins of sheep and goats.";
constexpr auto nextText = "What comes after it";

QString MarkerText(const QString& type) {
    static const QMap<QString, QString> texts{{"disc", QString(QChar(0x2022))},
                                              {"circle", QString(QChar(0x25E6))},
                                              {"square", QString(QChar(0x25AA))},
                                              {"decimal", "1."},
                                              {"lower-roman", "i."},
                                              {"upper-roman", "I."},
                                              {"lower-alpha", "a."},
                                              {"upper-alpha", "A."}};
    return texts.value(type);
}

Qt::CursorShape CursorShape(const QString& name) {
    static const QMap<QString, Qt::CursorShape> shapes{
        {"crosshair", Qt::CrossCursor},     {"hand", Qt::PointingHandCursor},   {"pointer", Qt::PointingHandCursor},
        {"move", Qt::SizeAllCursor},        {"e-resize", Qt::SizeHorCursor},    {"w-resize", Qt::SizeHorCursor},
        {"n-resize", Qt::SizeVerCursor},    {"s-resize", Qt::SizeVerCursor},    {"ne-resize", Qt::SizeBDiagCursor},
        {"sw-resize", Qt::SizeBDiagCursor}, {"nw-resize", Qt::SizeFDiagCursor}, {"se-resize", Qt::SizeFDiagCursor},
        {"text", Qt::IBeamCursor},          {"wait", Qt::WaitCursor},           {"help", Qt::WhatsThisCursor}};
    return shapes.value(name, Qt::ArrowCursor);
}

// The trapezium that a border fills between the corners of two rectangles, the whole or a share of its width.
QPolygonF EdgeShape(StyleSide side, const QRectF& outer, const QRectF& inner) {
    switch (side) {
        case TopSide:
            return QPolygonF({outer.topLeft(), outer.topRight(), inner.topRight(), inner.topLeft()});
        case RightSide:
            return QPolygonF({outer.topRight(), outer.bottomRight(), inner.bottomRight(), inner.topRight()});
        case BottomSide:
            return QPolygonF({outer.bottomRight(), outer.bottomLeft(), inner.bottomLeft(), inner.bottomRight()});
        case LeftSide:
            return QPolygonF({outer.bottomLeft(), outer.topLeft(), inner.topLeft(), inner.bottomLeft()});
    }
    return {};
}

QRectF Between(const QRectF& outer, const QRectF& inner, double share) {
    const auto mix = [share](double from, double to) { return from + (to - from) * share; };
    return {QPointF(mix(outer.left(), inner.left()), mix(outer.top(), inner.top())),
            QPointF(mix(outer.right(), inner.right()), mix(outer.bottom(), inner.bottom()))};
}

void PaintDashes(QPainter& painter, StyleSide side, const StyleEdge& edge, const QColor& color, const QRectF& middle) {
    const bool dots = edge.style == "dotted";
    QPen pen(color, edge.width, Qt::CustomDashLine, dots ? Qt::RoundCap : Qt::FlatCap);
    pen.setDashPattern(dots ? QList<qreal>{0.01, 2} : QList<qreal>{3, 2});
    painter.setPen(pen);
    const QPolygonF line = EdgeShape(side, middle, middle);
    painter.drawLine(line.at(0), line.at(1));
}

void PaintEdge(QPainter& painter, StyleSide side, const StyleEdge& edge, const QColor& color, const QRectF& outer,
               const QRectF& inner) {
    const auto fill = [&](const QColor& paint, double from, double to) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(paint);
        painter.drawPolygon(EdgeShape(side, Between(outer, inner, from), Between(outer, inner, to)));
    };
    const bool lit = side == TopSide || side == LeftSide;
    const QColor shade = color.darker(200);
    const auto inset = [&](bool sunken) { return lit == sunken ? shade : color; };
    if (edge.style == "dotted" || edge.style == "dashed") {
        PaintDashes(painter, side, edge, color, Between(outer, inner, 0.5));
    } else if (edge.style == "double") {
        fill(color, 0, 1.0 / 3);
        fill(color, 2.0 / 3, 1);
    } else if (edge.style == "groove" || edge.style == "ridge") {
        fill(inset(edge.style == "groove"), 0, 0.5);
        fill(inset(edge.style == "ridge"), 0.5, 1);
    } else if (edge.style == "inset" || edge.style == "outset") {
        fill(inset(edge.style == "inset"), 0, 1);
    } else if (edge.style == "solid") {
        fill(color, 0, 1);
    }
}

}  // namespace

StyleSample::StyleSample(QWidget* parent) : QWidget(parent), text_(std::make_unique<QTextDocument>()) {
    setAccessibleName(tr("Sample"));
    text_->setDocumentMargin(0);
}

StyleSample::~StyleSample() = default;

void StyleSample::Show(const QString& element, const StyleValues& values) {
    element_ = element;
    values_ = values;
    ShowBox();
}

void StyleSample::ShowBox() {
    box_ = StyledBox(element_, values_, std::max(1.0, width() - 2 * paperMargin));
    isBody_ = element_.trimmed().compare(QLatin1String("body"), Qt::CaseInsensitive) == 0;
    setCursor(CursorShape(box_.cursor));
    const bool inside = box_.display == "list-item" && box_.markerInside;
    text_->setDefaultFont(box_.font);
    text_->setPlainText((inside ? MarkerText(box_.marker) + u' ' : QString()) + sampleText);
    QTextCursor all(text_.get());
    all.select(QTextCursor::Document);
    QTextCharFormat letters;
    letters.setForeground(box_.color);
    letters.setVerticalAlignment(box_.vertical);
    all.mergeCharFormat(letters);
    QTextBlockFormat lines;
    lines.setAlignment(box_.alignment);
    lines.setLayoutDirection(box_.direction);
    lines.setTextIndent(box_.indent);
    if (box_.lineHeight) lines.setLineHeight(*box_.lineHeight, QTextBlockFormat::FixedHeight);
    all.mergeBlockFormat(lines);
    LayOut();
    update();
}

void StyleSample::LayOut() {
    const double across = box_.Around(LeftSide) + box_.Around(RightSide);
    const double margins = box_.margins.at(LeftSide).value_or(0) + box_.margins.at(RightSide).value_or(0);
    const double room = std::max(1.0, width() - 2 * paperMargin - margins - across);
    const bool floats = box_.side == "left" || box_.side == "right";
    const bool shrinks = floats || box_.display == "inline" || box_.position == "absolute";
    text_->setTextWidth(-1);
    const double ideal = text_->idealWidth() + 1;
    const double inner = box_.width.value_or(shrinks ? std::min(ideal, room) : room);
    text_->setTextWidth(inner);
    const QSizeF size(inner + across,
                      box_.height.value_or(text_->size().height()) + box_.Around(TopSide) + box_.Around(BottomSide));

    const double spare = room - inner;
    double left = paperMargin + box_.margins.at(LeftSide).value_or(0);
    if (!box_.margins.at(LeftSide)) left += spare / (box_.margins.at(RightSide) ? 1 : 2);
    if (box_.side == "right") left += spare;
    const double top = paperMargin + box_.margins.at(TopSide).value_or(0);
    next_ = box_.display == "none" ? paperMargin : top + size.height() + box_.margins.at(BottomSide).value_or(0);
    border_ = QRectF(QPointF(left, top), size);
    if (box_.position == "relative" || box_.position == "absolute") border_.translate(box_.left, box_.top);
    if (box_.position == "absolute") next_ = paperMargin;
    constexpr int most = 4000;
    setMinimumHeight(
        std::min(most, static_cast<int>(std::max(border_.bottom(), next_ + fontMetrics().height()) + paperMargin)));
    setMinimumWidth(box_.width ? std::min(most, static_cast<int>(border_.right() + paperMargin)) : 0);
}

void StyleSample::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ShowBox();
}

void StyleSample::PaintMarker(QPainter& painter, const QRectF& content) const {
    painter.setFont(box_.font);
    painter.setPen(box_.color);
    const QString marker = MarkerText(box_.marker);
    const QFontMetricsF metrics(box_.font);
    const double gap = box_.font.pixelSize() / 2.0;
    const bool fromRight = box_.direction == Qt::RightToLeft;
    const double left = fromRight ? content.right() + gap : content.left() - gap - metrics.horizontalAdvance(marker);
    painter.drawText(QPointF(left, content.top() + metrics.ascent()), marker);
}

void StyleSample::PaintBox(QPainter& painter) const {
    const QRectF padded = border_.adjusted(box_.EdgeWidth(LeftSide), box_.EdgeWidth(TopSide),
                                           -box_.EdgeWidth(RightSide), -box_.EdgeWidth(BottomSide));
    if (box_.background.isValid() && !isBody_) painter.fillRect(border_, box_.background);
    for (const StyleSide side : {TopSide, RightSide, BottomSide, LeftSide}) {
        const StyleEdge& edge = box_.edges.at(side);
        if (box_.EdgeWidth(side) > 0) {
            PaintEdge(painter, side, edge, edge.color.isValid() ? edge.color : box_.color, border_, padded);
        }
    }
    const QRectF content = border_.adjusted(box_.Around(LeftSide), box_.Around(TopSide), -box_.Around(RightSide),
                                            -box_.Around(BottomSide));
    if (box_.display == "list-item" && !box_.markerInside) PaintMarker(painter, content);
    if (box_.clips) painter.setClipRect(padded);
    painter.translate(content.topLeft());
    text_->drawContents(&painter);
}

void StyleSample::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (isBody_ && box_.background.isValid()) painter.fillRect(rect(), box_.background);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::gray);
    if (!isBody_) painter.drawText(QPointF(paperMargin, next_ + fontMetrics().ascent()), nextText);
    if (box_.display == "none" || box_.hidden) return;
    PaintBox(painter);
}

}  // namespace vellum
