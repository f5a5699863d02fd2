#include "tools/tables/table_clipboard.h"

#include "tools/tables/cell_block.h"
#include "tools/tables/table_grid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>

namespace vellum {
namespace {

void SetContent(TableCell& cell, const QString& text) {
    cell.text = text;
    cell.image.clear();
    cell.picture = {};
}

QRect SelectedBlock(const TableGrid& grid) {
    QRect block;
    for (const QItemSelectionRange& range : grid.Selected()) {
        block |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    }
    return block;
}

void PasteBlock(TableGrid& grid, const CellBlock& block) {
    qsizetype columns = 0;
    for (const QStringList& row : block) columns = std::max(columns, row.size());
    const QPoint first = SelectedBlock(grid).topLeft();
    const QPoint last(first.x() + static_cast<int>(columns) - 1, first.y() + static_cast<int>(block.size()) - 1);
    grid.Resize(std::max(grid.Cells().Rows(), last.y() + 1), std::max(grid.Cells().Columns(), last.x() + 1));
    grid.Select(first, last);
    qsizetype place = 0;  // in the block, row by row
    grid.ChangeSelected([&](TableCell& cell) {
        const QStringList& row = block.at(static_cast<std::size_t>(place / columns));
        if (place % columns < row.size()) SetContent(cell, row.at(place % columns));
        ++place;
    });
}

}  // namespace

void CopyCells(TableGrid& grid) {
    const QRect selected = SelectedBlock(grid);
    CellBlock block;
    for (int row = selected.top(); row <= selected.bottom(); ++row) {
        QStringList& texts = block.emplace_back();
        for (int column = selected.left(); column <= selected.right(); ++column) {
            texts << grid.Cells().At(row, column).text;
        }
    }
    QGuiApplication::clipboard()->setText(BlockText(block));
}

void CutCells(TableGrid& grid) {
    CopyCells(grid);
    ClearCells(grid);
}

void PasteCells(TableGrid& grid) {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasText()) return;
    const CellBlock block = ReadBlock(data->text());
    if (block.size() > 1 || block.front().size() > 1) return PasteBlock(grid, block);
    grid.ChangeSelected([&](TableCell& cell) { SetContent(cell, block.front().front()); });
}

void ClearCells(TableGrid& grid) {
    grid.ChangeSelected([](TableCell& cell) { SetContent(cell, {}); });
}

}  // namespace vellum
