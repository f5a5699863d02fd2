// The values of a style sheet's elements while it is edited.
#pragma once

#include "tools/styles/style_sheets.h"

#include <array>

namespace vellum {

// Rows count from 0, in the order of the list of elements, and have the values of one element each.
class StyleTable {
public:
    static constexpr int rowCount = 101;

    [[nodiscard]] const StyleValues& Row(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
    void Set(int row, std::size_t property, const QString& value);
    // Moves the rows after `row` up by one, down to the hundredth, which stays.
    void Remove(int row);
    // Empties a hundred rows; the last one stays as it is.
    void Clear();

private:
    std::array<StyleValues, rowCount> rows_;
};

}  // namespace vellum
