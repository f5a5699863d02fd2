// Paints a cell of the table as the page will show it.
#pragma once

#include "tools/tables/table_cells.h"

#include <QFont>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace vellum {

class TableModel;

// Which colours of its own a cell shows; without them it is black on white, whatever the desktop's colours.
struct CellLook {
    bool textColors = false;
    bool backColors = false;
    bool operator==(const CellLook&) const = default;
};

inline constexpr int cellMargin = 2;  // around the text, in pixels

[[nodiscard]] QFont CellFont(const TableCell& cell);
[[nodiscard]] QColor InkOf(const TableCell& cell, const CellLook& look);
[[nodiscard]] QColor PaperOf(const TableCell& cell, const CellLook& look);

class TableCellPainter : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit TableCellPainter(const TableModel& model, QObject* parent = nullptr);

    CellLook look;
    QPersistentModelIndex active;  // has a frame around it

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const TableModel& model_;
};

}  // namespace vellum
