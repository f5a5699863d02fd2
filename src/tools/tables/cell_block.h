// A block of cells on the clipboard, as spreadsheets put it there: a line a row, with tabs between the cells.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vellum {

// A text a cell, row by row; the rows needn't be of one length.
using CellBlock = std::vector<QStringList>;

// A cell with a tab, a line end or a quote stands in quotes, the quotes in it doubled. Line ends are "\n".
[[nodiscard]] QString BlockText(const CellBlock& block);

// The way back. Line ends of any kind; one at the end of the text opens no row. A quote that is never closed, or goes
// on after its end, is a letter as any other.
[[nodiscard]] CellBlock ReadBlock(QString text);

}  // namespace vellum
