// The colouring pass over a document.
#pragma once

namespace vellum {

class Document;
class Workbench;

// Paints the range that the main window's ColorSpanStart and ColorSpanLength tell, or all of the text when that length
// is 0, and gives the keyboard to the text. A text without any markup ends the pass early.
void PaintMarkup(Workbench& bench, Document& document);

}  // namespace vellum
