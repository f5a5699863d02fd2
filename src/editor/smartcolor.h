// The colouring pass over a document.
#pragma once

namespace vellum {

class Document;
class Workbench;

// Paints all of a text, the active one or another. False for a text without any markup, which is plain then.
bool PaintAll(Workbench& bench, Document& document);

// Paints the range that the main window's ColorSpanStart and ColorSpanLength tell, or all of the text when that length
// is 0, and gives the keyboard to the text. A text without any markup ends the pass early.
void PaintMarkup(Workbench& bench, Document& document);

}  // namespace vellum
