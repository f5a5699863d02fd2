// The cells of a table, as the grid reads and changes them.
#pragma once

#include "tools/tables/table_cells.h"

#include <QAbstractTableModel>

#include <functional>

class QItemSelection;

namespace vellum {

// The letters of a column, which counts from 0: A to Z, AA, AB, ...
[[nodiscard]] QString ColumnLetters(int column);

class TableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    [[nodiscard]] const TableCells& Cells() const { return cells_; }
    [[nodiscard]] const TableCell& At(const QModelIndex& index) const { return cells_.At(index.row(), index.column()); }
    void SetCells(TableCells cells);
    void Resize(int rows, int columns);
    void SetColumnWidth(int column, int twips) { cells_.SetColumnWidth(column, twips); }
    void SetRowHeight(int row, int twips) { cells_.SetRowHeight(row, twips); }

    using CellChange = std::function<void(TableCell& cell)>;
    void Change(const QItemSelection& selection, const CellChange& change);
    void ChangeAll(const CellChange& change);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    // The text; to a screen reader the name of an image too.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    TableCells cells_;
};

}  // namespace vellum
