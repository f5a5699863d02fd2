#include "shell/mdi_arrange.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace vellum {
namespace {

void ArrangeIcons(QMdiArea& area) {
    const QRect room = area.viewport()->rect();
    int left = 0;
    int bottom = room.bottom() + 1;
    for (QMdiSubWindow* child : area.subWindowList()) {
        if (!child->isMinimized()) continue;
        if (left > 0 && left + child->width() > room.width()) {
            left = 0;
            bottom -= child->height();
        }
        child->move(left, bottom - child->height());
        left += child->width();
    }
}

}  // namespace

QList<QRect> TileRects(const QRect& area, int count, Arrangement arrangement) {
    QList<QRect> places;
    for (int i = 0; i < count; ++i) {
        if (arrangement == Arrangement::TileHorizontally) {
            const int top = area.top() + area.height() * i / count;
            const int next = area.top() + area.height() * (i + 1) / count;
            places << QRect(area.left(), top, area.width(), next - top);
        } else {
            const int left = area.left() + area.width() * i / count;
            const int next = area.left() + area.width() * (i + 1) / count;
            places << QRect(left, area.top(), next - left, area.height());
        }
    }
    return places;
}

void Arrange(QMdiArea& area, Arrangement arrangement) {
    if (arrangement == Arrangement::ArrangeIcons) {
        ArrangeIcons(area);
        return;
    }
    QList<QMdiSubWindow*> open;
    for (QMdiSubWindow* child : area.subWindowList()) {
        if (child->isMaximized()) child->showNormal();
        if (!child->isMinimized()) open << child;
    }
    if (arrangement == Arrangement::Cascade) {
        area.cascadeSubWindows();
        return;
    }
    const QList<QRect> places = TileRects(area.viewport()->rect(), static_cast<int>(open.size()), arrangement);
    for (qsizetype i = 0; i < open.size(); ++i) open.at(i)->setGeometry(places.at(i));
}

}  // namespace vellum
