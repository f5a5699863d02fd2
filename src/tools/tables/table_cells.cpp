#include "tools/tables/table_cells.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace vellum {

void TableCells::Resize(int rows, int columns) {
    const auto width = static_cast<std::size_t>(columns);
    rows_.resize(static_cast<std::size_t>(rows));
    rowHeights_.resize(static_cast<std::size_t>(rows), rowHeight);
    columnWidths_.resize(width, columnWidth);
    for (std::vector<TableCell>& row : rows_) row.resize(std::min(row.size(), width));
}

void TableCells::Clear() {
    for (std::vector<TableCell>& row : rows_) row.clear();
}

const TableCell& TableCells::At(int row, int column) const {
    static const TableCell empty;
    const std::vector<TableCell>& cells = rows_.at(static_cast<std::size_t>(row));
    const auto index = static_cast<std::size_t>(column);
    return index < cells.size() ? cells[index] : empty;
}

TableCell& TableCells::Cell(int row, int column) {
    std::vector<TableCell>& cells = rows_.at(static_cast<std::size_t>(row));
    const auto index = static_cast<std::size_t>(column);
    if (index >= cells.size()) cells.resize(index + 1);
    return cells[index];
}

void TableCells::ForEach(const std::function<void(TableCell&)>& change) {
    for (std::vector<TableCell>& row : rows_) {
        for (TableCell& cell : row) change(cell);
    }
}

int FontSizeIndex(float points) {
    const auto* const above = std::find_if(std::begin(fontSizes), std::end(fontSizes),
                                           [points](const FontSizeChoice& size) { return size.points > points; });
    return static_cast<int>(std::distance(std::begin(fontSizes), above)) - 1;
}

int HeightFor(const TableCell& cell) {
    constexpr float twipsPerPoint = 20;
    constexpr float lineHeight = 1.25F;  // in heights of a letter
    constexpr float tallest = 9000;
    const auto lines = static_cast<float>(cell.text.count(u'\n') + 1);
    const float height = std::ceil(lines * cell.fontSize * twipsPerPoint * lineHeight);
    return static_cast<int>(std::min(height, tallest)) + twipsPerPixel;  // and the line of the grid
}

int ScrollMaximum(int before, const std::vector<int>& sizes) {
    constexpr long long step = 10;
    int maximum = 0;
    long long end = before;
    for (const int size : sizes) {
        end += size;
        if (end / step > std::numeric_limits<std::int16_t>::max()) break;
        maximum = static_cast<int>(end / step);
    }
    return maximum;
}

}  // namespace vellum
