#include "shell/color_bar.h"

#include "shell/twip_geometry.h"
#include "values/color_hex.h"
#include "widgets/tab_strip.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace vellum {
namespace {

// Twips.
constexpr int boxTop = 30;
constexpr int boxBottom = 240;
constexpr int boxWidth = 105;
constexpr int pressLimit = 8370;

// Shades of a ramp, from dark to bright.
constexpr int shadeStep = 45;
constexpr int shadeCount = 5;
constexpr int full = 255;

// Pixels: the line around the boxes, and the room between them and the tab after them.
constexpr int lineWidth = 1;
constexpr int gap = 4;

using Ramp = QColor (*)(int shade);

// A dark and a bright ramp of each colour, and grey.
constexpr std::array<Ramp, 15> ramps{
    [](int i) { return QColor(i, 0, 0); },     [](int i) { return QColor(full, i, i); },
    [](int i) { return QColor(0, i, 0); },     [](int i) { return QColor(i, full, i); },
    [](int i) { return QColor(0, 0, i); },     [](int i) { return QColor(i, i, full); },
    [](int i) { return QColor(i, i, 0); },     [](int i) { return QColor(full, full, i); },
    [](int i) { return QColor(i, i / 2, 0); }, [](int i) { return QColor(full, (full + i) / 2, i); },
    [](int i) { return QColor(i, 0, i); },     [](int i) { return QColor(full, i, full); },
    [](int i) { return QColor(0, i, i); },     [](int i) { return QColor(i, full, full); },
    [](int i) { return QColor(i, i, i); },
};

int BoxCount() {
    return static_cast<int>(ColorBoxes().size());
}

QRect RowRect() {
    return PixelRect(ColorBoxRect(0)).united(PixelRect(ColorBoxRect(BoxCount() - 1)));
}

}  // namespace

const std::vector<ColorNumber>& ColorBoxes() {
    static const std::vector<ColorNumber> boxes = [] {
        std::vector<ColorNumber> colors;
        for (const Ramp ramp : ramps) {
            for (int step = 1; step <= shadeCount; ++step) colors.push_back(NumberFromColor(ramp(step * shadeStep)));
        }
        colors.push_back(NumberFromColor(Qt::white));
        return colors;
    }();
    return boxes;
}

TwipRect ColorBoxRect(int box) {
    return {box * boxWidth, boxTop, boxWidth, boxBottom - boxTop};
}

std::optional<int> ColorBoxAt(int left, int top) {
    if (left < 0 || top < boxTop || top >= boxBottom || left >= BoxCount() * boxWidth) return {};
    return left / boxWidth;
}

std::optional<ColorNumber> ColorTakenAt(int left, int top, ColorNumber background) {
    if (left > pressLimit) return {};
    const auto box = ColorBoxAt(left, top);
    return box ? ColorBoxes().at(*box) : background;
}

ColorBar::ColorBar(QWidget* parent) : QWidget(parent), clrbutton(new TabStrip(this)) {
    setObjectName("Picture14");
    setAccessibleName(tr("Color bar"));
    setFocusPolicy(Qt::TabFocus);  // a press leaves the keyboard where the author types
    clrbutton->setObjectName("clrbutton");
    clrbutton->AddTab("Other!", "Opens a Color Chooser Dialog Box.");
    clrbutton->setAccessibleName(tr("Color chooser"));
    const QRect row = RowRect();
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(row.right() + 1 + gap, 0, 0, 0);
    line->addWidget(clrbutton);
    line->addStretch();
    setMinimumHeight(row.bottom() + 1 + row.top());
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    Mark(0);
}

void ColorBar::Mark(int box) {
    marked_ = std::clamp(box, 0, BoxCount() - 1);
    const QString hex = ColorToHex(ColorBoxes().at(marked_));
    setAccessibleDescription(hex);
    if (hasFocus()) QToolTip::showText(mapToGlobal(PixelRect(ColorBoxRect(marked_)).bottomLeft()), hex, this);
    update();
}

bool ColorBar::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    if (const auto box = ColorBoxAt(TwipsFromPixels(help.x()), TwipsFromPixels(help.y()))) {
        QToolTip::showText(help.globalPos(), ColorToHex(ColorBoxes().at(*box)), this, PixelRect(ColorBoxRect(*box)));
    } else {
        QToolTip::hideText();
    }
    return true;
}

void ColorBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) update();
}

void ColorBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            return Mark(marked_ - 1);
        case Qt::Key_Right:
            return Mark(marked_ + 1);
        case Qt::Key_Up:
            return Mark(marked_ - shadeCount);
        case Qt::Key_Down:
            return Mark(marked_ + shadeCount);
        case Qt::Key_Home:
            return Mark(0);
        case Qt::Key_End:
            return Mark(BoxCount() - 1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (!event->isAutoRepeat()) emit ColorTaken(ColorBoxes().at(marked_));
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

void ColorBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const QPoint place = event->position().toPoint();
    const ColorNumber background = NumberFromColor(palette().color(QPalette::Window));
    const auto color = ColorTakenAt(TwipsFromPixels(place.x()), TwipsFromPixels(place.y()), background);
    if (!color) return;
    if (const auto box = ColorBoxAt(TwipsFromPixels(place.x()), TwipsFromPixels(place.y()))) Mark(*box);
    emit ColorTaken(*color);
}

void ColorBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    constexpr double faint = 0.35;
    if (!isEnabled()) painter.setOpacity(faint);
    for (int box = 0; box < BoxCount(); ++box) {
        painter.fillRect(PixelRect(ColorBoxRect(box)), ColorFromNumber(ColorBoxes().at(box)));
    }
    // Sets the last boxes off from a bright bar, and the first from a dark one.
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(RowRect().adjusted(-lineWidth, -lineWidth, 0, 0));
    if (!hasFocus()) return;
    const QRect marked = PixelRect(ColorBoxRect(marked_));
    painter.setPen(palette().color(QPalette::Window));
    painter.drawRect(marked.adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(marked.adjusted(-1, -1, 0, 0));
}

}  // namespace vellum
