// The one way of finished text into a document.
#pragma once

class QString;

namespace vellum {

class Document;
class Workbench;

// Puts markup in place of the document's selection, in the colours of the place, as one step of undo. `markup` comes
// back with the surface's line ends and, where the author wants it, with the indentation of the line.
void InsertMarkup(Workbench& bench, Document& document, QString& markup);

}  // namespace vellum
