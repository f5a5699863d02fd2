// What a table holds while it is composed: its cells, the widths of its columns and the heights of its rows.
#pragma once

#include "values/units.h"

#include <QImage>
#include <QString>

#include <functional>
#include <vector>

namespace vellum {

struct TableCell {
    QString text;               // may hold line ends
    ColorNumber color = 0;      // of the text
    ColorNumber backColor = 0;  // 0 is no colour of its own, so black is 1
    float fontSize = 12;        // in points
    QString image;              // the bare name of a picture's file; empty without one
    QImage picture;             // what the image shows in the grid
};

// Rows and columns count from 0 and are the author's: a grid's header is none of them. Sizes are in twips.
class TableCells {
public:
    static constexpr int columnWidth = 1900;
    static constexpr int rowHeight = 315;

    TableCells() { Resize(2, 2); }

    [[nodiscard]] int Rows() const { return static_cast<int>(rowHeights_.size()); }
    [[nodiscard]] int Columns() const { return static_cast<int>(columnWidths_.size()); }
    // Keeps what stands within both sizes; rows and columns that come are empty and as large as any at first.
    void Resize(int rows, int columns);
    // Makes all cells empty; rows and columns keep their sizes.
    void Clear();

    [[nodiscard]] const TableCell& At(int row, int column) const;
    [[nodiscard]] TableCell& Cell(int row, int column);
    // Changes all cells that aren't as empty as at first.
    void ForEach(const std::function<void(TableCell&)>& change);

    [[nodiscard]] const std::vector<int>& ColumnWidths() const { return columnWidths_; }
    [[nodiscard]] const std::vector<int>& RowHeights() const { return rowHeights_; }
    [[nodiscard]] int ColumnWidth(int column) const { return columnWidths_.at(static_cast<std::size_t>(column)); }
    void SetColumnWidth(int column, int twips) { columnWidths_.at(static_cast<std::size_t>(column)) = twips; }
    [[nodiscard]] int RowHeight(int row) const { return rowHeights_.at(static_cast<std::size_t>(row)); }
    void SetRowHeight(int row, int twips) { rowHeights_.at(static_cast<std::size_t>(row)) = twips; }

private:
    // A row holds its cells up to the last one that was touched, so that one long line in a file of many short ones
    // costs no more than it holds.
    std::vector<std::vector<TableCell>> rows_;
    std::vector<int> rowHeights_;
    std::vector<int> columnWidths_;
};

// What the author can choose from: what is read, and what a cell has then. A size of 10 is kept as 9.75.
struct FontSizeChoice {
    const char* caption;
    float points;
};
inline constexpr FontSizeChoice fontSizes[] = {{"8", 8},   {"10", 9.75F}, {"12", 12}, {"14", 14},
                                               {"18", 18}, {"24", 24},    {"36", 36}};

// The choice that shows a size: the largest one that isn't above it. -1 below the smallest.
[[nodiscard]] int FontSizeIndex(float points);

// How high a row has to be for the text of a cell, in twips; no more than a screen shows with ease.
[[nodiscard]] int HeightFor(const TableCell& cell);

// How far a scroll bar goes whose step is ten twips: to the end of the last row, or column, that ends within 16 bits.
// `before` is what stands before the first one, in twips.
[[nodiscard]] int ScrollMaximum(int before, const std::vector<int>& sizes);

}  // namespace vellum
