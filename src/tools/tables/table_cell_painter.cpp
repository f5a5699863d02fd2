#include "tools/tables/table_cell_painter.h"

#include "tools/tables/table_model.h"

#include <QPainter>

#include <algorithm>

namespace vellum {
namespace {

constexpr int textFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextExpandTabs | Qt::TextDontClip;
constexpr int mostShown = 2000;  // characters of a text, which is more than a cell has room for

QString ShownText(const TableCell& cell) {
    return cell.text.left(mostShown);
}

// Where a picture stands in its cell: as large as it is, or as the cell lets it.
QRect PictureRect(const QImage& picture, const QRect& room) {
    const QSize size = picture.width() > room.width() || picture.height() > room.height()
                           ? picture.size().scaled(room.size(), Qt::KeepAspectRatio)
                           : picture.size();
    return {room.topLeft(), size};
}

}  // namespace

QFont CellFont(const TableCell& cell) {
    constexpr float pixelsPerPoint = 4.0F / 3;  // as a page is laid out
    QFont font(QStringLiteral("Times New Roman"));
    font.setStyleHint(QFont::Times);
    font.setPixelSize(std::max(qRound(cell.fontSize * pixelsPerPoint), 1));
    return font;
}

QColor InkOf(const TableCell& cell, const CellLook& look) {
    return look.textColors ? ColorFromNumber(cell.color) : QColor(Qt::black);
}

QColor PaperOf(const TableCell& cell, const CellLook& look) {
    return look.backColors && cell.backColor != 0 ? ColorFromNumber(cell.backColor) : QColor(Qt::white);
}

TableCellPainter::TableCellPainter(const TableModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {}

void TableCellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const TableCell& cell = model_.At(index);
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, PaperOf(cell, look));
    QRect room = option.rect.adjusted(cellMargin, cellMargin, -cellMargin, -cellMargin);
    if (!cell.picture.isNull()) {
        const QRect place = PictureRect(cell.picture, room);
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(place, cell.picture);
        room.setLeft(place.right() + 1 + cellMargin);
    }
    if (!cell.text.isEmpty()) {
        painter->setFont(CellFont(cell));
        painter->setPen(InkOf(cell, look));
        painter->drawText(room, textFlags, ShownText(cell));
    }
    QColor highlight = option.palette.color(QPalette::Highlight);
    if (index == active) {
        painter->setPen(QPen(highlight, 2));
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    } else if (option.state.testFlag(QStyle::State_Selected)) {
        constexpr int tint = 90;
        highlight.setAlpha(tint);
        painter->fillRect(option.rect, highlight);
    }
    painter->restore();
}

QSize TableCellPainter::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
    const TableCell& cell = model_.At(index);
    const QFontMetrics metrics(CellFont(cell));
    QSize size = metrics.size(Qt::TextExpandTabs, ShownText(cell));
    if (!cell.picture.isNull()) {
        size = {size.width() + cell.picture.width() + cellMargin, std::max(size.height(), cell.picture.height())};
    }
    return size + QSize(2 * cellMargin + 1, 2 * cellMargin + 1);  // and the line of the grid
}

}  // namespace vellum
