// The commands that bring in text from other files.
#pragma once

#include <QString>

#include <optional>

namespace vellum {

class Workbench;

// Asks for a text or RTF file and makes a page of it: in the active document when that holds no text, else in a new
// one. A file that can't be read leaves the document as it is.
void ImportToNewFile(Workbench& bench);
// Asks for such a file and puts its markup in place of the active document's selection.
void ImportToDocument(Workbench& bench);

// The markup of a file, by the last letters of its name: of "txt" that of plain text, of "rtf" that of text with
// formats; any other gives none. Empty when the file can't be read or has too
// much for the machine. `font` and `points` are for a text without formats.
[[nodiscard]] std::optional<QString> ImportedMarkup(const QString& path, const QString& font, double points);

// The page around imported markup.
[[nodiscard]] QString ImportedPage(const QString& markup);

}  // namespace vellum
