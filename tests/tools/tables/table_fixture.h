// A grid of a table, driven by real events.
#pragma once

#include "tools/tables/table_cell_editor.h"
#include "tools/tables/table_grid.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QTest>

namespace vellum::test {

// What lies under the pointer at the middle of a cell: the grid's own surface, or the field over the active cell.
inline std::pair<QWidget*, QPoint> Under(const TableGrid& grid, int row, int column) {
    const QPoint place = grid.visualRect(grid.model()->index(row, column)).center();
    auto* const editor = grid.findChild<TableCellEditor*>("Text1");
    const bool covered = editor->isVisible() && editor->geometry().contains(place) &&
                         (editor->mask().isEmpty() || editor->mask().contains(place - editor->pos()));
    if (!covered) return {grid.viewport(), place};
    return {editor->viewport(), editor->viewport()->mapFrom(grid.viewport(), place)};
}

inline void ClickCell(const TableGrid& grid, int row, int column, Qt::KeyboardModifiers modifiers = {}) {
    const auto [widget, place] = Under(grid, row, column);
    QTest::mouseClick(widget, Qt::LeftButton, modifiers, place);
}

// The button goes down over a cell and up over another. Whoever got the press gets all of it.
inline void DragCells(const TableGrid& grid, QPoint from, QPoint to) {
    const auto [widget, place] = Under(grid, from.y(), from.x());
    const QPoint end = widget->mapFrom(grid.viewport(), grid.visualRect(grid.model()->index(to.y(), to.x())).center());
    QTest::mousePress(widget, Qt::LeftButton, {}, place);
    QMouseEvent move(QEvent::MouseMove, end, widget->mapToGlobal(end), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(widget, &move);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, end);
}

// Drags the end of a column or row along its header.
inline void DragSection(QHeaderView& header, int section, int pixels) {
    const bool across = header.orientation() == Qt::Horizontal;
    const int edge = header.sectionViewportPosition(section) + header.sectionSize(section) - 1;
    const auto at = [&](int along) {
        return across ? QPoint(along, header.height() / 2) : QPoint(header.width() / 2, along);
    };
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, at(edge));
    const QPoint end = at(edge + pixels);
    QMouseEvent move(QEvent::MouseMove, end, header.viewport()->mapToGlobal(end), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(header.viewport(), &move);
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, end);
}

}  // namespace vellum::test
