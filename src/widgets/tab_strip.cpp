#include "widgets/tab_strip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionTab>
#include <QStylePainter>

#include <utility>

namespace vellum {
namespace {

// An access key would take its letter from the menus, and choose the tab without running its command.
QString WithoutAccessKey(const QString& caption) {
    return QString(caption).replace(u'&', QLatin1String("&&"));
}

}  // namespace

TabStrip::TabStrip(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(true);
    setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where the author types
}

int TabStrip::AddTab(const QString& caption, const QString& toolTip, const QIcon& icon) {
    const int index = addTab(icon, WithoutAccessKey(caption));
    setTabToolTip(index, toolTip);
    return index + 1;
}

QString TabStrip::Caption(int index) const {
    return tabText(index - 1).replace(QLatin1String("&&"), QLatin1String("&"));
}

void TabStrip::SetCaption(int index, const QString& caption) {
    setTabText(index - 1, WithoutAccessKey(caption));
}

void TabStrip::keyPressEvent(QKeyEvent* event) {
    const bool fires = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (!fires) {
        QTabBar::keyPressEvent(event);
    } else if (currentIndex() >= 0 && !event->isAutoRepeat()) {
        emit TabClicked(currentIndex() + 1);
    }
}

void TabStrip::mousePressEvent(QMouseEvent* event) {
    QTabBar::mousePressEvent(event);
    if (event->button() != Qt::LeftButton) return;
    const int index = tabAt(event->position().toPoint());
    pressed_ = index >= 0 && isTabEnabled(index) ? index : -1;
    update();
}

void TabStrip::mouseReleaseEvent(QMouseEvent* event) {
    QTabBar::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton) return;
    const int pressed = std::exchange(pressed_, -1);
    update();
    if (pressed >= 0 && tabAt(event->position().toPoint()) == pressed) emit TabClicked(pressed + 1);
}

void TabStrip::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    for (int index = 0; index < count(); ++index) {
        QStyleOptionTab option;
        initStyleOption(&option, index);
        // A command has no state to show: no tab stands out but the one that is being pressed or has the focus.
        option.state &= ~(QStyle::State_Selected | QStyle::State_Sunken);
        if (index == pressed_) option.state |= QStyle::State_Sunken | QStyle::State_MouseOver;
        if (option.state & QStyle::State_HasFocus) option.state |= QStyle::State_KeyboardFocusChange;
        option.selectedPosition = QStyleOptionTab::NotAdjacent;
        if (option.rect.intersects(rect())) painter.drawControl(QStyle::CE_TabBarTab, option);
    }
}

}  // namespace vellum
