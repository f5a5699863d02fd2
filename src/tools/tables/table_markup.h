// A table, from its cells and settings to markup.
#pragma once

#include "tools/tables/table_cells.h"

#include <optional>

namespace vellum {

struct TableSettings {
    QString alignment;
    QString borderSize;
    QString borderColor;
    QString cellPadding = QStringLiteral("3");
    QString cellSpacing = QStringLiteral("2");
    QString frame;
    QString rules;
    QString title;
    QString textAlignment = QStringLiteral("LEFT");
    QString verticalAlignment = QStringLiteral("TOP");
    bool percentWidth = false;  // of the table in the page, and of each column in the table
    QString width = QStringLiteral("100%");
    bool textColors = false;
    bool clearBackgrounds = true;  // the cells let the page show through
    bool cellHeights = false;
    // What only the television browser knows.
    QString gradientAngle;
    QString gradientColor;
    QString transparency;
};

// The width of all columns in pixels, by which shares of it are told; nothing when it is more than 16 bits can tell in
// twips.
[[nodiscard]] std::optional<int> TablePixels(const TableCells& cells);

// The widest that a table may be, in twips.
inline constexpr int widestTable = 32767;

// Nothing when the table is too wide, or, with shares, too narrow to have any.
[[nodiscard]] std::optional<QString> TableMarkup(const TableCells& cells, const TableSettings& settings);

}  // namespace vellum
