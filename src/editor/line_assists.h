// What Tab and Enter do to whole lines of a surface.
#pragma once

namespace vellum {

class EditSurface;

// A tab ahead of every line that the selection touches; the lines are selected then.
void IndentBlock(EditSurface& surface);

// Takes one tab from the start of each of those lines that has one, and selects the same way. With nothing selected it
// goes for the caret's line.
void UnindentBlock(EditSurface& surface);

// A line end, and as many tabs as stand at the start of the line, before the caret.
void BreakLine(EditSurface& surface);

}  // namespace vellum
