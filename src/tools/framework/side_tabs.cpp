#include "tools/framework/side_tabs.h"

#include <QKeyEvent>
#include <QStyleOptionTab>
#include <QStylePainter>

#include <algorithm>

namespace vellum {

// Along a side the toolkit turns captions, and measures them so.
QSize SideTabBar::tabSizeHint(int index) const {
    return QTabBar::tabSizeHint(index).transposed();
}

void SideTabBar::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    const int margin = style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, this) / 2;
    for (int i = 0; i < count(); ++i) {
        QStyleOptionTab tab;
        initStyleOption(&tab, i);
        painter.drawControl(QStyle::CE_TabBarTabShape, tab);
        const QRect text = tab.rect.adjusted(margin, 0, -margin, 0);
        painter.drawItemText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, tab.palette, isEnabled(),
                             tab.text, QPalette::WindowText);
        if (!hasFocus() || i != currentIndex()) continue;
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = tab.rect.adjusted(2, 2, -2, -2);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void SideTabBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Up && event->key() != Qt::Key_Down) return QTabBar::keyPressEvent(event);
    const int step = event->key() == Qt::Key_Up ? -1 : 1;
    setCurrentIndex(std::clamp(currentIndex() + step, 0, count() - 1));
}

SideTabWidget::SideTabWidget(QWidget* parent) : QTabWidget(parent) {
    setTabBar(new SideTabBar(this));
    setTabPosition(QTabWidget::West);
}

}  // namespace vellum
