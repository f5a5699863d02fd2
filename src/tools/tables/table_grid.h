// The grid in which a table is composed: cells that are typed into, selected and painted as on the page, with columns
// and rows that the mouse drags.
#pragma once

#include "tools/tables/table_cell_painter.h"
#include "tools/tables/table_model.h"

#include <QBasicTimer>
#include <QTableView>

namespace vellum {

class TableCellEditor;

// Rows and columns count from 0, without the headers. The active cell is the one that a selection began with; what is
// changed goes into all selected ones.
class TableGrid : public QTableView {
    Q_OBJECT
public:
    explicit TableGrid(QWidget* parent = nullptr);

    // The widths and heights of the headers, in twips, as the scroll bars count them.
    static constexpr int headerWidth = 500;
    static constexpr int headerHeight = TableCells::rowHeight;

    [[nodiscard]] const TableCells& Cells() const { return model_->Cells(); }
    void SetCells(TableCells cells);
    void Resize(int rows, int columns);

    [[nodiscard]] QModelIndex Active() const { return painter_->active; }
    [[nodiscard]] const TableCell& ActiveCell() const { return model_->At(Active()); }
    [[nodiscard]] QItemSelection Selected() const;  // the active cell when nothing is
    void Enter(int row, int column);
    // All cells between two, of which the first becomes active; points are columns and rows.
    void Select(QPoint first, QPoint last);
    // A row down, or up; from the last cell of a column to the top of the next one, and the other way.
    void StepRow(int step);
    // To the next cell in the order of reading, or the one before; false at the end of the table.
    bool StepCell(int step);

    // Row by row in each range of the selection. Rows grow with what their cells come to hold.
    void ChangeSelected(const TableModel::CellChange& change);
    void ChangeActive(const TableModel::CellChange& change);
    void ChangeAll(const TableModel::CellChange& change) { model_->ChangeAll(change); }
    void SetText(int row, int column, const QString& text);

    [[nodiscard]] const CellLook& Look() const { return painter_->look; }
    void SetLook(const CellLook& look);

    // Does what a key means to the cells; false when it means nothing.
    bool PressKey(const QKeyEvent& event);
    void ShowMenu(QPoint place);  // at a point of the screen
    // Hides the field over the active cell until the grid is used again.
    void HideEditor();

signals:
    void ActiveChanged();
    void SizesChanged();  // the number of rows or columns, a width or a height

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void updateGeometries() override;
    bool focusNextPrevChild(bool next) override;

private:
    void SetUpHeaders();
    void FollowActive();
    void ShowSizes();
    void TakeWidth(int column, int pixels);
    void TakeHeight(int row, int pixels);
    void GrowRows(const QItemSelection& changed);
    void Extend(const QModelIndex& to);
    bool Move(int key, Qt::KeyboardModifiers modifiers);
    void PressDefaultButton();
    [[nodiscard]] QModelIndex CellAt(QPoint place) const;  // the nearest one

    TableModel* model_;
    TableCellPainter* painter_;
    TableCellEditor* editor_ = nullptr;
    QBasicTimer dragTimer_;  // runs while a drag is beyond the edge
    QPoint dragPlace_;
    bool dragging_ = false;
    bool hiding_ = false;
};

}  // namespace vellum
