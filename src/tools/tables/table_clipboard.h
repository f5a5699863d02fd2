// The cells of a table to the clipboard and back, as a spreadsheet has them.
#pragma once

namespace vellum {

class TableGrid;

// The smallest block that holds all selected cells.
void CopyCells(TableGrid& grid);
void CutCells(TableGrid& grid);

// From the first selected cell on, in place of what stands there; the table grows where the block needs it. A single
// text goes into every selected cell. Nothing without a text on the clipboard.
void PasteCells(TableGrid& grid);

// Texts and images.
void ClearCells(TableGrid& grid);

}  // namespace vellum
