// Reads a text whose lines are rows of cells, with a separator between them.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vellum {

struct DelimitedText {
    // At least one each. The columns are those of the widest line that ends in a line feed; one more row stands after
    // the last line feed, be it empty.
    int rows = 1;
    int columns = 1;
    std::vector<QStringList> cells;  // one a row, each with as many texts as its line has, up to the columns
};

// What separates the cells for an entry of the importer's list; nothing, so that each line is one cell, for an entry
// that isn't known: the known ones are "Tab", "Comma", "SemiColon" and "Space", to the letter.
[[nodiscard]] std::optional<QChar> DelimiterOf(QStringView entry);

// Quotes mean nothing, carriage returns are skipped, and what stands beyond the last column is lost.
[[nodiscard]] DelimitedText ReadDelimitedText(QStringView text, std::optional<QChar> delimiter);

}  // namespace vellum
