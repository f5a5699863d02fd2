// The copy of a document that the visual editor works on.
#pragma once

#include <QString>

namespace vellum {

class Document;
class Workbench;

// Writes the document's text to "caching.htm" in the website directory and returns the path. Empty, with a message, for
// a document with framesets, which the visual editor can't load, and when the file can't be written.
[[nodiscard]] QString WriteVisualCopy(Workbench& workbench, const Document& document);

}  // namespace vellum
