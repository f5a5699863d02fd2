#include "tools/tables/table_model.h"

#include <QItemSelection>

#include <utility>

namespace vellum {

QString ColumnLetters(int column) {
    constexpr int letters = 26;
    QString text;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / letters) {
        text.prepend(QChar(u'A' + static_cast<char16_t>((rest - 1) % letters)));
    }
    return text;
}

void TableModel::SetCells(TableCells cells) {
    beginResetModel();
    cells_ = std::move(cells);
    endResetModel();
}

void TableModel::Resize(int rows, int columns) {
    const int rowsNow = cells_.Rows();
    if (rows > rowsNow) beginInsertRows({}, rowsNow, rows - 1);
    if (rows < rowsNow) beginRemoveRows({}, rows, rowsNow - 1);
    cells_.Resize(rows, cells_.Columns());
    if (rows > rowsNow) endInsertRows();
    if (rows < rowsNow) endRemoveRows();
    const int columnsNow = cells_.Columns();
    if (columns > columnsNow) beginInsertColumns({}, columnsNow, columns - 1);
    if (columns < columnsNow) beginRemoveColumns({}, columns, columnsNow - 1);
    cells_.Resize(rows, columns);
    if (columns > columnsNow) endInsertColumns();
    if (columns < columnsNow) endRemoveColumns();
}

void TableModel::Change(const QItemSelection& selection, const CellChange& change) {
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            for (int column = range.left(); column <= range.right(); ++column) change(cells_.Cell(row, column));
        }
        emit dataChanged(range.topLeft(), range.bottomRight());
    }
}

void TableModel::ChangeAll(const CellChange& change) {
    cells_.ForEach(change);
    emit dataChanged(index(0, 0), index(cells_.Rows() - 1, cells_.Columns() - 1));
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : cells_.Rows();
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : cells_.Columns();
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const TableCell& cell = At(index);
    if (role == Qt::DisplayRole) return cell.text;
    if (role == Qt::AccessibleTextRole) return cell.image + cell.text;
    return {};
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    return orientation == Qt::Horizontal ? ColumnLetters(section) : QString::number(section + 1);
}

}  // namespace vellum
