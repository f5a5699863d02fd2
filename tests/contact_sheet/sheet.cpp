#include "tests/contact_sheet/sheet.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace vellum::contact_sheet {
namespace {

constexpr int gap = 24;
constexpr int captionGap = 6;

struct Cell {
    QRect picture;
    QRect caption;
};

// Fills rows from the left; a row is as tall as the tallest of its cells.
std::vector<Cell> PlaceCells(const std::vector<Shot>& shots, int width) {
    const QFontMetrics metrics(QGuiApplication::font());
    std::vector<Cell> cells;
    QPoint corner(gap, gap);
    int rowHeight = 0;
    for (const Shot& shot : shots) {
        const int cellWidth = std::max(shot.picture.width(), metrics.horizontalAdvance(shot.name));
        if (corner.x() > gap && corner.x() + cellWidth + gap > width) {
            corner = {gap, corner.y() + rowHeight + gap};
            rowHeight = 0;
        }
        const QRect picture(corner, shot.picture.size());
        cells.push_back({picture, {picture.left(), picture.bottom() + captionGap, cellWidth, metrics.height()}});
        rowHeight = std::max(rowHeight, cells.back().caption.bottom() - corner.y());
        corner.rx() += cellWidth + gap;
    }
    return cells;
}

}  // namespace

QImage MakeSheet(const std::vector<Shot>& shots, int width) {
    const std::vector<Cell> cells = PlaceCells(shots, width);
    QRect bounds(0, 0, width - gap, 0);
    for (const Cell& cell : cells) bounds |= cell.picture | cell.caption;

    const QPalette colors = QGuiApplication::palette();
    QImage sheet(bounds.size() + QSize(gap, gap), QImage::Format_RGB32);
    sheet.fill(colors.color(QPalette::Mid));
    QPainter painter(&sheet);
    for (std::size_t i = 0; i < shots.size(); ++i) {
        painter.drawImage(cells[i].picture.topLeft(), shots[i].picture);
        painter.setPen(colors.color(QPalette::Shadow));
        painter.drawRect(cells[i].picture.adjusted(-1, -1, 0, 0));
        painter.setPen(colors.color(QPalette::WindowText));
        painter.drawText(cells[i].caption, Qt::AlignLeft | Qt::AlignVCenter, shots[i].name);
    }
    return sheet;
}

}  // namespace vellum::contact_sheet
